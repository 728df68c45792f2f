#include "apps/connections.h"

#include <charconv>
#include <filesystem>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "adapters/services/settings.h"
#include "adapters/sqlite/connection.h"
#include "adapters/system/paths.h"
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

constexpr const char* settingsKey = "Database";

/// Leaves the time as it is when the setting is not there.
void readSeconds(const services::Settings& settings, const std::string& name,
                 std::chrono::milliseconds& time) {
    constexpr int longest = 86'400;
    const auto text = settings.read(settingsKey, name);
    if (!text) return;
    int seconds = 0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), seconds);
    if (error != std::errc() || end != text->data() + text->size() || seconds < 0 ||
        seconds > longest)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "the setting " + name +
                               " has to be a whole number of seconds from 0 to " +
                               decimalText(longest) + ", not '" + *text + "'");
    time = std::chrono::seconds(seconds);
}

sql::Timeouts timeoutsOf(const Options& options) {
    const services::Settings settings(services::Settings::defaultFile(), options.settings);
    sql::Timeouts timeouts;
    readSeconds(settings, "LoginTimeout", timeouts.login);
    readSeconds(settings, "StatementTimeout", timeouts.statement);
    readSeconds(settings, "LockTimeout", timeouts.lock);
    return timeouts;
}

std::unique_ptr<rdoConnection> openFile(const std::string& file, const sql::Timeouts& timeouts,
                                        sqlite::Opening opening) {
    const std::string what = "cannot open the database " + file;
    if (!std::filesystem::is_regular_file(pathOf(file)))
        throw RuntimeError(error_number::statementFailed,
                           what +
                               ": there is no such file; name another with --database, or make one "
                               "with 'catalogador demo DIRECTORY'");
    try {
        return sqlite::Connection::open(file, timeouts, opening);
    } catch (const RuntimeError& error) {
        fail(error, what, "check that it is a SQLite database that you may read and write");
    }
}

/// Long statements run beside the window. What drivers allocate there would come from a pool of its
/// own, which costs a sixth of a large load.
void shareOnePool() {
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 1);
#endif
}

}  // namespace

std::unique_ptr<rdoConnection> createDatabase(const std::string& file) {
    return sqlite::Connection::open(file, {}, sqlite::Opening::created);
}

std::unique_ptr<rdoConnection> openDatabase(const Options& options) {
    shareOnePool();
    if (!options.connectionString.empty()) return openServer(options);
    return openFile(options.database, timeoutsOf(options), sqlite::Opening::guarded);
}

std::unique_ptr<rdoConnection> openOtherDesk(const Options& options) {
    if (!options.connectionString.empty()) return openServer(options);
    return openFile(options.database, timeoutsOf(options), sqlite::Opening::unguarded);
}

std::unique_ptr<odbc::OdbcConnection> openServer(const Options& options) {
    const sql::Timeouts timeouts = timeoutsOf(options);
    try {
        return odbc::OdbcConnection::open(options.connectionString, timeouts);
    } catch (const RuntimeError& error) {
        fail(error, "cannot connect to the database",
             "check driver, server, user and password in --connect ('odbcinst -q -d' lists the "
             "drivers)");
    }
}

}  // namespace catalogador
