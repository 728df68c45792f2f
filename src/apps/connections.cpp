#include "apps/connections.h"

#include <filesystem>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

std::string onOneLine(std::string text) {
    for (char& character : text)
        if (character == '\n' || character == '\r') character = ' ';
    return text;
}

[[noreturn]] void fail(const RuntimeError& error, const std::string& what,
                       const std::string& advice) {
    throw RuntimeError(error.number(),
                       what + ": " + onOneLine(error.description()) + "; " + advice);
}

std::unique_ptr<rdoConnection> openFile(const std::string& file) {
    const std::string what = "cannot open the database " + file;
    if (!std::filesystem::is_regular_file(file))
        throw RuntimeError(error_number::statementFailed,
                           what +
                               ": there is no such file; name another with --database, or make one "
                               "with 'catalogador demo DIRECTORY'");
    try {
        auto connection = createDatabase(file);
        // The driver opens any file; only a statement tells whether it is a database.
        connection->OpenResultset("Select Count(*) From sqlite_master")->Close();
        return connection;
    } catch (const RuntimeError& error) {
        fail(error, what, "check that it is a SQLite database that you may read and write");
    }
}

}  // namespace

std::unique_ptr<rdoConnection> createDatabase(const std::string& file) {
    return OdbcConnection::open(OdbcConnection::sqliteConnectionString(file));
}

std::unique_ptr<rdoConnection> openDatabase(const Options& options) {
    if (options.connectionString.empty()) return openFile(options.database);
    return openServer(options.connectionString);
}

std::unique_ptr<OdbcConnection> openServer(const std::string& connectionString) {
    try {
        return OdbcConnection::open(connectionString);
    } catch (const RuntimeError& error) {
        fail(error, "cannot connect to the database",
             "check driver, server, user and password in --connect ('odbcinst -q -d' lists the "
             "drivers)");
    }
}

}  // namespace catalogador
