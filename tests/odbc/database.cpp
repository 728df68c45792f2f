#include "database.h"

#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ostream>

#include "runtime/convert.h"
#ifdef _WIN32
#include "../sql/dialects.h"
#include "com/automation/automation_connection.h"
#include "com/connections/connection_object.h"
#endif

namespace catalogador::test {

const std::vector<DatabaseKind>& databaseKinds() {
    static const std::vector<DatabaseKind> kinds{
        {"Sqlite", dialects::sqlite, "", false, true},
        {"SqliteOverOdbc", dialects::sqlite, ""},
        {"Postgresql", dialects::postgresql, "CATALOGADOR_TEST_POSTGRESQL"},
        {"Mariadb", dialects::mariadb, "CATALOGADOR_TEST_MARIADB"},
#ifdef _WIN32
        {"Automation", dialects::sqlite, "", true},
#endif
    };
    return kinds;
}

std::string kindName(const testing::TestParamInfo<DatabaseKind>& info) {
    return info.param.name;
}

void RdoTest::SetUp() {
    table = "rows_" + std::to_string(getpid());
    if (dialect() == dialects::sqlite) {
        // What a power failure would leave of these files is of no interest.
        connectionString_ =
            odbc::OdbcConnection::sqliteConnectionString(file_.path()) + ";SyncPragma=OFF";
    } else {
        const char* given = std::getenv(GetParam().variable.c_str());
        if (given == nullptr) GTEST_SKIP() << GetParam().variable << " is not set";
        connectionString_ = given;
    }
    if (GetParam().guarded) sqlite::Connection::open(file_.path(), {}, sqlite::Opening::created);
    connection = connect();
    other = connect();
    ASSERT_TRUE(connection->dialect() == dialect());
    connection->run("DROP TABLE IF EXISTS " + table);
}

void RdoTest::TearDown() {
    if (connection) connection->run("DROP TABLE IF EXISTS " + table);
}

TypeNames RdoTest::types() const {
    if (dialect() == dialects::postgresql)
        return {"BOOLEAN", "DOUBLE PRECISION", "TEXT", "TIMESTAMP"};
    if (dialect() == dialects::mariadb) return {"BIT(1)", "DOUBLE", "LONGTEXT", "DATETIME"};
    return {"BIT", "DOUBLE", "TEXT", "TIMESTAMP"};
}

std::unique_ptr<TestedConnection> RdoTest::connect(const sql::Timeouts& timeouts,
                                                   const odbc::Defences& defences,
                                                   const std::string& options) const {
    if (GetParam().guarded) return connectFile(timeouts, sqlite::Opening::guarded);
    const std::shared_ptr<odbc::OdbcConnection> odbc =
        odbc::OdbcConnection::open(connectionString_ + options, timeouts, defences);
#ifdef _WIN32
    if (GetParam().automation) {
        com::AutomationObject object(
            com::ComPtr<IDispatch>::owning(new com::ConnectionObject(odbc)));
        return std::make_unique<TestedConnection>(
            odbc, std::make_unique<com::AutomationConnection>(std::move(object)));
    }
#endif
    return std::make_unique<TestedConnection>(odbc);
}

std::unique_ptr<TestedConnection> RdoTest::connectFile(const sql::Timeouts& timeouts,
                                                       sqlite::Opening opening) const {
    auto native = std::make_unique<TestedConnection>(
        sqlite::Connection::open(file_.path(), timeouts, opening));
    native->makeTablesBy(
        sqlite::Connection::open(file_.path(), timeouts, sqlite::Opening::unguarded));
    return native;
}

void RdoTest::create(const std::string& columns, const std::vector<std::string>& rows) {
    connection->run("CREATE TABLE " + table + " (" + columns + ")");
    for (const std::string& row : rows)
        connection->run("INSERT INTO " + table + " VALUES (" + row + ")");
}

std::vector<std::vector<Variant>> RdoTest::all(const std::string& order) {
    return other->query("SELECT * FROM " + table + " ORDER BY " + order);
}

void PrintTo(const DatabaseKind& kind, std::ostream* out) {
    *out << kind.name;
}

}  // namespace catalogador::test

namespace catalogador {

void PrintTo(const Variant& value, std::ostream* out) {
    constexpr const char* kinds[] = {"Null", "bool", "int64", "double", "Decimal", "Date", "text"};
    *out << kinds[value.storage().index()] << " " << toTextOrEmpty(value, Regional{});
}

}  // namespace catalogador
