#include <atomic>
#include <chrono>
#include <future>
#include <thread>

#include "../sql/dialects.h"
#include "database.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

using namespace std::chrono_literals;

class Conflicts : public test::RdoTest {
  protected:
    void SetUp() override {
        if (GetParam().dialect == dialects::sqlite) GTEST_SKIP() << "writers take turns";
        test::RdoTest::SetUp();
    }
    static bool comesTrue(const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + 20s;
        while (!condition()) {
            if (std::chrono::steady_clock::now() > end) return false;
            // MariaDB's table of transactions stays as it is while it is read more often.
            std::this_thread::sleep_for(200ms);
        }
        return true;
    }
    std::int32_t number(test::TestedConnection& whose, const std::string& sql, int column = 0) {
        return toLong(whose.query(sql).at(0).at(static_cast<std::size_t>(column)), Regional{});
    }
    bool somebodyWaits() {
        const std::string sql =
            dialect() == dialects::postgresql
                ? "Select Count(*) From pg_stat_activity Where wait_event_type = 'Lock' And "
                  "datname = current_database() And query Like '%" +
                      table + "%'"
                : "Select Count(*) From information_schema.innodb_trx Where trx_state = 'LOCK "
                  "WAIT' And trx_query Like '%" +
                      table + "%'";
        return number(*watcher_, sql) > 0;
    }
    std::unique_ptr<test::TestedConnection> watcher_;
};
INSTANTIATE_TEST_SUITE_P(, Conflicts, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(Conflicts, OfTwoWritersThatWaitForEachOtherBothAreDoneInTheEnd) {
    create("Code INTEGER PRIMARY KEY, Total INTEGER", {"1, 0", "2, 0"});
    std::atomic<int> inside{0};
    std::atomic<int> conflicts{0};
    const auto add = [&](test::TestedConnection& whose, int code) {
        whose.run("UPDATE " + table + " SET Total = Total + 1 WHERE Code = " + decimalText(code));
    };
    const auto write = [&](test::TestedConnection& whose, int first, int second) {
        inTransaction(*static_cast<rdoConnection&>(whose).session(), [&] {
            try {
                add(whose, first);
                ++inside;
                comesTrue([&] { return inside >= 2; });
                add(whose, second);
            } catch (const RuntimeError& error) {
                conflicts += error.cause() == ErrorCause::conflict ? 1 : 0;
                throw;
            }
        });
    };
    auto one = std::async(std::launch::async, write, std::ref(*connection), 1, 2);
    auto another = std::async(std::launch::async, write, std::ref(*other), 2, 1);
    EXPECT_NO_THROW(one.get());
    EXPECT_NO_THROW(another.get());
    EXPECT_GE(conflicts, 1);
    for (const auto& row : all()) EXPECT_EQ(row[1], Variant(2));
}

TEST_P(Conflicts, ASaveThatWasUndoneInADeadlockIsDoneAgain) {
    if (dialect() != dialects::mariadb) GTEST_SKIP() << "a save holds one lock there";
    create("Code INTEGER PRIMARY KEY, Name VARCHAR(20) UNIQUE");
    watcher_ = connect();
    const std::string deadlocks = "Show Global Status Like 'Innodb_deadlocks'";
    const std::int32_t before = number(*watcher_, deadlocks, 1);
    other->begin();
    // The engine undoes the transaction that has written less.
    for (int code = 20; code < 40; ++code)
        other->run("INSERT INTO " + table + " VALUES (?, ?)", {code, "name " + decimalText(code)});
    const auto rows = connection->OpenToWrite(select());
    rows->AddNew();
    rows->setValue("Code", 10);
    rows->setValue("Name", "name 20");
    auto save = std::async(std::launch::async, [&] { rows->Update(); });
    EXPECT_TRUE(comesTrue([&] { return somebodyWaits(); }));
    EXPECT_NO_THROW(other->query(select("WHERE Code = 10 FOR UPDATE")));
    EXPECT_GT(number(*watcher_, deadlocks, 1), before);
    other->rollback();
    EXPECT_NO_THROW(save.get());
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(Conflicts, ASaveThatCouldNotBeSerializedIsDoneAgain) {
    if (dialect() != dialects::postgresql) GTEST_SKIP() << "its transactions wait instead";
    create("Code INTEGER PRIMARY KEY, Total INTEGER, Note VARCHAR(20)", {"1, 0, 'a'"});
    watcher_ = connect();
    connection->run("SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL SERIALIZABLE");
    const auto meets = [&](const std::string& note, const std::function<void()>& write) {
        other->begin();
        other->run("UPDATE " + table + " SET Note = '" + note + "'");
        auto writing = std::async(std::launch::async, write);
        EXPECT_TRUE(comesTrue([&] { return somebodyWaits(); }));
        other->commit();
        writing.get();
    };
    ErrorCause cause = ErrorCause::unknown;
    connection->begin();
    meets("b", [&] {
        try {
            connection->run("UPDATE " + table + " SET Total = 7");
        } catch (const RuntimeError& error) {
            cause = error.cause();
        }
    });
    connection->rollback();
    EXPECT_EQ(cause, ErrorCause::conflict) << "what a save meets";

    const auto rows = connection->OpenToWrite("Select Code, Total From " + table);
    rows->Edit();
    rows->setValue("Total", 1);
    EXPECT_NO_THROW(meets("c", [&] { rows->Update(); }));
    EXPECT_EQ(all().at(0).at(1), Variant(1));
    EXPECT_EQ(all().at(0).at(2), Variant("c"));
}

}  // namespace
}  // namespace catalogador
