#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "database.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

using test::errorNumberOf;
using test::errorOf;
using test::TemporaryFile;

std::string stringFor(const std::string& path) {
    return odbc::OdbcConnection::sqliteConnectionString(path);
}

enum class Way { native, driver };

std::string wayName(const testing::TestParamInfo<Way>& info) {
    return info.param == Way::native ? "Native" : "OverOdbc";
}

std::unique_ptr<rdoConnection> opened(Way way, const std::string& path,
                                      const sql::Timeouts& timeouts = {},
                                      sqlite::Opening opening = sqlite::Opening::guarded) {
    if (way == Way::native) return sqlite::Connection::open(path, timeouts, opening);
    return odbc::OdbcConnection::open(stringFor(path), timeouts);
}

class Sqlite : public testing::TestWithParam<Way> {
  protected:
    [[nodiscard]] std::unique_ptr<rdoConnection> open(const sql::Timeouts& timeouts = {}) const {
        return opened(GetParam(), file_.path(), timeouts);
    }
    /// A statement that makes tables, or rows of them, from another desk.
    void schema(const std::string& sql) const {
        opened(GetParam(), file_.path(), {}, sqlite::Opening::created)->session()->run(sql);
    }

    [[nodiscard]] std::unique_ptr<rdoConnection> made() const {
        // A screen's connection opens what is there.
        opened(GetParam(), file_.path(), {}, sqlite::Opening::created);
        return open();
    }

    TemporaryFile file_;
    std::unique_ptr<rdoConnection> connection_ = made();
};
INSTANTIATE_TEST_SUITE_P(, Sqlite, testing::Values(Way::native, Way::driver), wayName);

TEST_P(Sqlite, AStatementThatTakesLongTellsWhoeverWaitsAndCanBeStopped) {
    int calls = 0;
    connection_->setWaiting([&] { return ++calls < 3; });
    EXPECT_FALSE(errorOf([&] {
                     connection_->OpenResultset(
                         "With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < "
                         "1000000000) Select Count(*) From n");
                 }).empty());
    EXPECT_EQ(calls, 3);
    connection_->setWaiting([&] { return ++calls > 0; });
    const auto rows = connection_->OpenResultset("Select 7");
    EXPECT_EQ(rows->value(0), Variant(7));
    EXPECT_EQ(calls, 4) << "once, as soon as the statement runs";
}

TEST_P(Sqlite, GivesStoredTextWhereItDoesNotFitTheDeclaredType) {
    schema(
        "CREATE TABLE t (a INTEGER, b BIT, c NUMERIC(10,2), d DOUBLE, e TIMESTAMP, f DATE, "
        "g VARCHAR(3))");
    connection_->session()->run(
        "INSERT INTO t VALUES ('abc', 'yes', '12,5', 'n/a', '', 'soon', 'longer')");
    const auto rows = connection_->OpenResultset("Select * From t");
    for (const auto& [column, text] : std::vector<std::pair<int, const char*>>{
             {0, "abc"}, {1, "yes"}, {2, "12,5"}, {3, "n/a"}, {4, ""}, {5, "soon"}, {6, "longer"}})
        EXPECT_EQ(rows->value(column), Variant(text)) << column;
    rows->Edit();
    rows->setValue("g", "x");
    rows->Update();
    rows->Delete();
    EXPECT_TRUE(connection_->session()->query("SELECT * FROM t").empty());
}

TEST_P(Sqlite, FindsRowWhateverItsValuesAreStoredAs) {
    schema("CREATE TABLE t (a INTEGER, b BIT, c NUMERIC, d VARCHAR(9), e TIMESTAMP, f, g REAL)");
    for (const char* row :
         {"3.5, 7, 1.0/3, 12, 2460000.5, 5, 4", "'1', '0', '1e3', 'A', 0, 'x', 1e300",
          "1e20, true, 12345678901234567890, '', '2024-01-02T03:04', 0.1, -0.0"}) {
        connection_->session()->run(std::string("INSERT INTO t VALUES (") + row + ")");
        const auto rows = connection_->OpenResultset("Select * From t");
        rows->Edit();
        rows->setValue("d", "changed");
        EXPECT_EQ(errorOf([&] { rows->Update(); }), "") << row;
        EXPECT_EQ(errorOf([&] { rows->Delete(); }), "") << row;
    }
}

TEST_P(Sqlite, ReportsBitForEveryDeclarationOfOne) {
    schema("CREATE TABLE t (a BIT, b bit(1), c BOOLEAN, d bool, e INTEGER)");
    connection_->session()->run("INSERT INTO t VALUES (1, 0, 1, 0, 1)");
    for (const char* sql : {"Select * From t", "Select * From t Where a = 0",
                            "Select a, b, c, d, e From (Select * From t)"}) {
        const auto rows = connection_->OpenResultset(sql);
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(rows->column(column).type, bitColumnType) << sql << column;
        EXPECT_NE(rows->column(4).type, bitColumnType);
    }
    EXPECT_EQ(connection_->OpenResultset("Select b From t")->value(0), Variant(false));
}

TEST_P(Sqlite, StoresDatesAndFlagsTheUsualWay) {
    schema("CREATE TABLE t (a TIMESTAMP, b DATE, c BIT, d INTEGER)");
    const auto rows = connection_->OpenResultset("Select * From t");
    rows->AddNew();
    rows->setValue("a", Date{2024, 1, 2, 3, 4, 5});
    rows->setValue("b", Date{2024, 1, 2});
    rows->setValue("c", true);
    rows->setValue("d", 7);
    rows->Update();
    const auto stored = connection_->session()->query(
        "SELECT CAST(a AS TEXT), CAST(b AS TEXT), typeof(c) || c, typeof(d) || d FROM t");
    const std::vector<Variant> expected{"2024-01-02 03:04:05", "2024-01-02", "integer1",
                                        "integer7"};
    EXPECT_EQ(stored.at(0), expected);
}

TEST_P(Sqlite, NoticesChangeOfCaseInColumnThatIsBlindToIt) {
    schema("CREATE TABLE t (a VARCHAR(9) COLLATE NOCASE)");
    connection_->session()->run("INSERT INTO t VALUES ('ana')");
    const auto rows = connection_->OpenResultset("Select * From t");
    connection_->session()->run("UPDATE t SET a = 'ANA'");
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::rowChanged);
}

TEST_P(Sqlite, WaitsForALockAsLongAsTheConnectionStringSays) {
    schema("CREATE TABLE t (a INTEGER)");
    if (GetParam() == Way::native) GTEST_SKIP() << "there is no connection string";
    const auto other = odbc::OdbcConnection::open(stringFor(file_.path()) + ";Timeout=300");
    connection_->session()->begin();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(errorNumberOf([&] { other->session()->begin(); }), error_number::statementFailed);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
    connection_->session()->rollback();
}

TEST_P(Sqlite, StopsWaitingForALockWithAnError) {
    schema("CREATE TABLE t (a INTEGER)");
    connection_->session()->run("INSERT INTO t VALUES (1)");
    sql::Timeouts timeouts;
    timeouts.lock = std::chrono::milliseconds(300);
    const auto other = open(timeouts);
    const auto rows = other->OpenResultset("Select * From t");
    connection_->session()->begin();
    connection_->session()->run("UPDATE t SET a = 1");
    const auto start = std::chrono::steady_clock::now();
    rows->Edit();
    rows->setValue("a", 3);
    const std::string text = errorOf([&] { rows->Update(); });
    EXPECT_NE(text.find("locked"), std::string::npos) << text;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
    connection_->session()->commit();
    rows->Update();
    EXPECT_EQ(connection_->session()->query("SELECT a FROM t").at(0).at(0), Variant(3));
}

TEST_P(Sqlite, LetsTwoProcessesWriteAtTheSameTime) {
    constexpr int rounds = 50;
    schema("CREATE TABLE t (a INTEGER)");
    connection_.reset();
    const auto write = [&](int process) {
        const auto connection = open();
        const auto rows = connection->OpenResultset("Select * From t");
        for (int i = 0; i < rounds; ++i) {
            rows->AddNew();
            rows->setValue("a", process * rounds + i);
            rows->Update();
        }
    };
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) _exit(errorNumberOf([&] { write(1); }) == 0 ? 0 : 1);
    EXPECT_EQ(errorOf([&] { write(0); }), "");
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    const auto connection = open();
    EXPECT_EQ(connection->session()->query("SELECT DISTINCT a FROM t").size(), 2U * rounds);
}

TEST_P(Sqlite, EnforcesForeignKeys) {
    schema("CREATE TABLE p (a INTEGER PRIMARY KEY)");
    schema("CREATE TABLE c (a INTEGER REFERENCES p(a))");
    EXPECT_EQ(errorNumberOf([&] { connection_->Execute("Insert Into c Values (1)"); }),
              error_number::statementFailed);
}

class SqliteFile : public testing::TestWithParam<Way> {};
INSTANTIATE_TEST_SUITE_P(, SqliteFile, testing::Values(Way::native, Way::driver), wayName);

TEST_P(SqliteFile, MayHaveAnOddName) {
    for (const char* name :
         {"with blank.db", "ma\u00f1ana \U0001F600.db", "it's.db", "a=b.db", "a{b}.db",
          "a%20b?c.db", "a#b.db", "a;b.db", "a}b.db", "{a.db", " a .db ", "100%; # ?.db"}) {
        const TemporaryFile file(name);
        const std::string error = errorOf([&] {
            opened(GetParam(), file.path(), {}, sqlite::Opening::created)
                ->session()
                ->run("CREATE TABLE t (a INTEGER)");
            opened(GetParam(), file.path())->session()->run("INSERT INTO t VALUES (1)");
        });
        EXPECT_EQ(error, "") << name;
        EXPECT_TRUE(std::filesystem::exists(file.path())) << name;
    }
}

TEST_P(SqliteFile, IsReportedWhenItCannotBeOpened) {
    EXPECT_EQ(errorNumberOf([] {
                  opened(GetParam(), "/no/such/folder/a.db")->OpenResultset("Select 1 From t");
              }),
              error_number::statementFailed);
}

TEST(OdbcConnectionOpen, ReportsDriverThatIsNotThereWithoutThePassword) {
    const std::string text =
        errorOf([] { odbc::OdbcConnection::open("DRIVER={no such driver};UID=ana;PWD=secret"); });
    EXPECT_NE(text, "");
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
}

}  // namespace
}  // namespace catalogador
