#include <gtest/gtest.h>

#include <chrono>

#include "../sql/dialects.h"
#include "database.h"

namespace catalogador {
namespace {

using test::errorNumberOf;
using test::errorOf;

class RdoStatement : public test::RdoTest {};
INSTANTIATE_TEST_SUITE_P(, RdoStatement, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoStatement, TellsHowManyRowsItTouched) {
    create("a INTEGER", {"1", "2", "3"});
    EXPECT_EQ(connection->Execute("Update " + table + " Set a = a + 10 Where a > 1"), 2);
    EXPECT_EQ(connection->Execute("Update " + table + " Set a = 0 Where a = 99"), 0);
    EXPECT_EQ(connection->Execute("Delete From " + table + ";"), 3);
    const std::string schema = "Alter Table " + table + " Add b INTEGER";
    if (GetParam().guarded)
        EXPECT_NE(errorOf([&] { connection->Execute(schema); }), "");
    else
        EXPECT_EQ(connection->Execute(schema), 0);
}

TEST_P(RdoStatement, OpenedWithoutRowsIsAtEndAndWasRun) {
    create("a INTEGER", {"1"});
    if (GetParam().guarded) GTEST_SKIP() << "there, what is opened only reads";
    connection->begin();
    const auto rows = connection->OpenResultset("Update " + table + " Set a = 5");
    EXPECT_TRUE(rows->atEnd());
    EXPECT_EQ(rows->columnCount(), 0);
    connection->commit();
    EXPECT_EQ(all()[0][0], Variant(5));
}

TEST_P(RdoStatement, RefusesSecondStatementAndRunsNone) {
    create("a INTEGER", {"1"});
    const std::string attack = "Update " + table + " Set a = 2; Delete From " + table;
    EXPECT_EQ(errorNumberOf([&] { connection->Execute(attack); }), error_number::statementFailed);
    EXPECT_EQ(errorNumberOf([&] { connection->OpenResultset(attack); }),
              error_number::statementFailed);
    EXPECT_EQ(errorNumberOf([&] {
                  connection->OpenResultset(select("Where a = 0'; Delete From " + table + " --"));
              }),
              error_number::statementFailed);
    EXPECT_EQ(all()[0][0], Variant(1));
}

TEST_P(RdoStatement, TakesCommentsAndTrailingSeparator) {
    create("a INTEGER", {"1"});
    const auto rows = connection->OpenResultset("Select a /* it's ? */ From " + table +
                                                " -- don't {ask} ?\n Where a = 1; -- end");
    EXPECT_EQ(rows->value(0), Variant(1));
}

TEST_P(RdoStatement, LeavesQuestionMarksAndBracesInTextsAlone) {
    create("a VARCHAR(40)", {"'{d ''2024-01-01''} ?'"});
    const auto rows = connection->OpenResultset("Select a, '?{fn now()}' As b From " + table +
                                                " Where a = '{d ''2024-01-01''} ?'");
    ASSERT_FALSE(rows->atEnd());
    EXPECT_EQ(rows->value(0), Variant("{d '2024-01-01'} ?"));
    EXPECT_EQ(rows->value(1), Variant("?{fn now()}"));
}

TEST_P(RdoStatement, DoesNoHarmWithQuestionMarkOutsideOfText) {
    create("a INTEGER", {"1"});
    errorNumberOf([&] { connection->Execute("Delete From " + table + " Where a = ?"); });
    EXPECT_EQ(all().size(), 1U);
    EXPECT_FALSE(connection->OpenResultset(select())->atEnd());
}

TEST_P(RdoStatement, ReportsDriversTextAndGoesOn) {
    create("a INTEGER", {"1"});
    const std::string text = errorOf([&] { connection->OpenResultset("Select * From no_such"); });
    EXPECT_NE(text.find("no_such"), std::string::npos) << text;
    EXPECT_EQ(text.find(": "), 5U) << "SQLSTATE first: " << text;
    EXPECT_EQ(errorNumberOf([&] { connection->OpenResultset("Selec 1"); }),
              error_number::statementFailed);
    EXPECT_EQ(errorNumberOf([&] { connection->OpenResultset(""); }), error_number::statementFailed);
    EXPECT_EQ(connection->OpenResultset(select())->value(0), Variant(1));
}

TEST_P(RdoStatement, OfServicesTakesValuesOfEveryKind) {
    create("a BIGINT, b VARCHAR(60), c " + types().real + ", d " + types().timestamp +
           ", e DECIMAL(10,2), f " + types().boolean);
    const std::string hostile = "x'; Delete From t; -- \\ \" \U0001F600";
    EXPECT_EQ(connection->run(
                  "INSERT INTO " + table + " VALUES (?, ?, ?, ?, ?, ?)",
                  {INT64_MAX, hostile, 0.1, Date{2024, 1, 2, 3, 4, 5}, Decimal{"-1.50"}, true}),
              1);
    const auto rows = connection->query("SELECT * FROM " + table + " WHERE b = ?", {hostile});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0][0], Variant(INT64_MAX));
    EXPECT_EQ(rows[0][1], Variant(hostile));
    EXPECT_EQ(rows[0][2], Variant(0.1));
    EXPECT_EQ(rows[0][3], Variant(Date{2024, 1, 2, 3, 4, 5}));
    EXPECT_EQ(rows[0][5], Variant(true));
}

TEST_P(RdoStatement, InTransactionIsUndoneByRollback) {
    create("a INTEGER");
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (1)");
    connection->rollback();
    EXPECT_TRUE(all().empty());
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (2)");
    connection->commit();
    EXPECT_EQ(all().size(), 1U);
    connection->run("INSERT INTO " + table + " VALUES (3)");
    EXPECT_EQ(all().size(), 2U);
    EXPECT_EQ(errorNumberOf([&] { connection->commit(); }), error_number::invalidProcedureCall);
}

TEST_P(RdoStatement, InInnerTransactionIsUndoneAlone) {
    create("a INTEGER");
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (1)");
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (2)");
    connection->rollback();
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (3)");
    connection->commit();
    connection->commit();
    const auto rows = all();
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1][0], Variant(3));
}

TEST_P(RdoStatement, InTransactionIsLostWithItsConnection) {
    create("a INTEGER");
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (1)");
    connection = connect();
    EXPECT_TRUE(all().empty());
}

/// Ends the session of `connection` as a server that is stopped would.
void breakConnection(test::TestedConnection& connection, test::TestedConnection& other) {
    const bool postgresql = other.dialect() == dialects::postgresql;
    const Variant session =
        connection.query(postgresql ? "SELECT pg_backend_pid()" : "SELECT CONNECTION_ID()")[0][0];
    const std::string number = std::to_string(*session.as<std::int64_t>());
    other.run(postgresql ? "SELECT pg_terminate_backend(" + number + ")" : "KILL " + number);
}

TEST_P(RdoStatement, AWriteOnALostConnectionIsDoneOrFailsAndTheNextOneWorks) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "a file has no connection to lose";
    create("a INTEGER", {"1"});
    auto rows = connection->OpenResultset(select());
    breakConnection(*connection, *other);
    rows->Edit();
    rows->setValue("a", 2);
    // A driver that notices before anything was written has the write done on a new connection.
    const bool done = errorNumberOf([&] { rows->Update(); }) == 0;
    EXPECT_EQ(all()[0][0], Variant(done ? 2 : 1));
    rows = connection->OpenResultset(select());
    rows->Edit();
    rows->setValue("a", 3);
    rows->Update();
    EXPECT_EQ(all()[0][0], Variant(3));
}

TEST_P(RdoStatement, AQueryOnALostConnectionIsAskedAgain) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "a file has no connection to lose";
    create("a INTEGER", {"1"});
    for (int round = 0; round < 3; ++round) {
        breakConnection(*connection, *other);
        EXPECT_EQ(connection->OpenResultset(select())->value(0), Variant(1));
    }
}

TEST_P(RdoStatement, ATransactionOnALostConnectionFailsAsAWhole) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "a file has no connection to lose";
    create("a INTEGER");
    connection->begin();
    connection->run("INSERT INTO " + table + " VALUES (1)");
    breakConnection(*connection, *other);
    const std::string second = "INSERT INTO " + table + " VALUES (2)";
    EXPECT_EQ(errorNumberOf([&] { connection->run(second); }), error_number::statementFailed);
    EXPECT_EQ(errorNumberOf([&] { connection->OpenResultset(select()); }),
              error_number::statementFailed);
    EXPECT_NE(errorNumberOf([&] { connection->commit(); }), 0);
    EXPECT_TRUE(all().empty());
    connection->begin();
    connection->run(second);
    connection->commit();
    EXPECT_EQ(all()[0][0], Variant(2));
}

TEST_P(RdoStatement, StopsWaitingForALockWithAnError) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "tested with a shorter wait";
    create("a INTEGER", {"1"});
    sql::Timeouts timeouts;
    timeouts.lock = std::chrono::seconds(1);
    other = connect(timeouts);
    const auto rows = other->OpenResultset(select());
    connection->begin();
    connection->run("UPDATE " + table + " SET a = 1");
    const auto start = std::chrono::steady_clock::now();
    rows->Edit();
    rows->setValue("a", 3);
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::statementFailed);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    connection->commit();
    rows->Update();
    EXPECT_EQ(all()[0][0], Variant(3));
}

TEST_P(RdoStatement, StopsAStatementThatTakesTooLong) {
    const bool overDriver = dialect() == dialects::sqlite && !GetParam().guarded;
    if (overDriver) GTEST_SKIP() << "the driver has no such limit";
    sql::Timeouts timeouts;
    timeouts.statement = std::chrono::seconds(1);
    const auto hurried = connect(timeouts);
    std::string sleep =
        dialect() == dialects::postgresql ? "SELECT pg_sleep(20)" : "SELECT SLEEP(20)";
    if (dialect() == dialects::sqlite)
        sleep =
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT COUNT(*) FROM "
            "n";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(errorNumberOf([&] { hurried->query(sleep); }), error_number::statementFailed);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    EXPECT_EQ(hurried->query("SELECT 1").size(), 1U) << "the connection goes on";
}

TEST_P(RdoStatement, ABackslashInATextIsACharacterLikeAnyOther) {
    create("a VARCHAR(40)", {"'C:\\'", "'x'' Or 1=1'"});
    const auto found = [&](const std::string& text) {
        const auto rows = connection->OpenResultset(select("Where a = '" + text + "'"));
        return !rows->atEnd();
    };
    EXPECT_TRUE(found("C:\\"));
    EXPECT_FALSE(found("\\'' Or 1=1 -- "));
    EXPECT_TRUE(found("x'' Or 1=1"));
}

class Recorder : public StatementListener {
  public:
    void opened(const std::string& sql, int type, int lock) override {
        events.push_back("open " + sql + " " + std::to_string(type) + " " + std::to_string(lock));
    }
    void executed(const std::string& sql) override { events.push_back("execute " + sql); }
    void written(std::string_view kind, const std::string& table,
                 const std::vector<std::pair<std::string, Variant>>& columns,
                 std::optional<bool> done) override {
        std::string names;
        for (const auto& [name, value] : columns) names += " " + name;
        events.push_back(std::string(kind) + " " + table + names + (done.value() ? "" : " failed"));
    }
    std::vector<std::string> events;
};

TEST_P(RdoStatement, IsToldToTheListenerWithEveryWrite) {
    create("Code INTEGER, Name VARCHAR(10)", {"1, 'x'"});
    Recorder recorder;
    connection->setListener(&recorder);
    const auto rows = connection->OpenResultset(select());
    rows->Edit();
    rows->setValue("name", "y");
    rows->Update();
    rows->Delete();
    rows->AddNew();
    rows->setValue("Name", "z");
    rows->setValue("Code", 2);
    rows->Update();
    connection->Execute("Delete From " + table);
    connection->query("SELECT 1");
    errorNumberOf([&] { connection->OpenResultset("nonsense", 1, 2); });
    connection->setListener(nullptr);
    connection->OpenResultset(select());
    // A connection that is driven by names does not tell what table a row is of.
    const std::string written = GetParam().automation ? "" : table;
    const std::vector<std::string> expected{
        "open " + select() + " 2 4",        "update " + written + " name",  "delete " + written,
        "insert " + written + " Name Code", "execute Delete From " + table, "open nonsense 1 2"};
    EXPECT_EQ(recorder.events, expected);
}

TEST_P(RdoStatement, AWriteIsToldWhenItHasHappenedOrFailed) {
    create("Code INTEGER NOT NULL PRIMARY KEY, Name VARCHAR(10)", {"1, 'x'", "2, 'y'"});
    Recorder recorder;
    connection->setListener(&recorder);
    const auto rows = connection->OpenToWrite(select("Where Code = 1"));
    recorder.events.clear();
    rows->AddNew();
    rows->setValue("Code", 2);
    EXPECT_NE(errorNumberOf([&] { rows->Update(); }), 0);
    rows->setValue("Code", 3);
    rows->Update();
    rows->Edit();
    rows->setValue("Code", 2);
    EXPECT_NE(errorNumberOf([&] { rows->Update(); }), 0);
    other->run("UPDATE " + table + " SET Name = 'z'");
    EXPECT_NE(errorNumberOf([&] { rows->Delete(); }), 0);
    connection->setListener(nullptr);
    const std::string written = GetParam().automation ? "" : table;
    // What was set before the correction may be told with it.
    ASSERT_EQ(recorder.events.size(), 4U);
    EXPECT_EQ(recorder.events[0], "insert " + written + " Code failed");
    EXPECT_EQ(recorder.events[1].find("failed"), std::string::npos);
    EXPECT_EQ(recorder.events[2], "update " + written + " Code failed");
    EXPECT_EQ(recorder.events[3], "delete " + written + " failed");
}

}  // namespace
}  // namespace catalogador
