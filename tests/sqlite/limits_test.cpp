#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "adapters/sqlite/connection.h"
#include "temporary_file.h"

namespace catalogador::sqlite {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using test::errorOf;
using test::TemporaryFile;

constexpr const char* endlessCount =
    "With Recursive n(i) As (Select 1 Union All Select i + 1 From n) Select Count(*) From n";
constexpr const char* endlessRows =
    "With Recursive n(i) As (Select 1 Union All Select i + 1 From n) Select i From n";

class Limits : public testing::Test {
  protected:
    void SetUp() override {
        Connection::open(file_.path(), {}, Opening::created)->Execute("Create Table t (a INTEGER)");
    }
    [[nodiscard]] std::unique_ptr<Connection> hurried() const {
        return Connection::open(file_.path(), {.statement = 500ms, .lock = 500ms});
    }

    TemporaryFile file_;
};

TEST_F(Limits, AStatementThatNeverEndsIsStopped) {
    const auto connection = hurried();
    const std::string update = std::string("Update t Set a = (") + endlessCount + ")";
    connection->Execute("Insert Into t Values (1)");
    for (const auto& run :
         std::vector<std::function<void()>>{[&] { connection->OpenResultset(endlessCount); },
                                            [&] { connection->OpenResultset(endlessRows); },
                                            [&] { connection->session()->query(endlessCount); },
                                            [&] { connection->Execute(update); }}) {
        const auto start = Clock::now();
        const std::string text = errorOf(run);
        EXPECT_NE(text.find("took longer than"), std::string::npos) << text;
        EXPECT_LT(Clock::now() - start, 20s);
        EXPECT_EQ(connection->OpenResultset("Select a From t")->value(0), Variant(1));
    }
    EXPECT_EQ(Connection::open(file_.path())->Execute("Update t Set a = 1"), 1)
        << "nobody is locked out";
}

TEST_F(Limits, NoLimitIsNone) {
    const auto connection = Connection::open(file_.path(), {.statement = 0ms});
    const auto rows = connection->OpenResultset(
        "With Recursive n(i) As (Select 1 Union All Select i + 1 From n Where i < 300000) Select "
        "Count(*) From n");
    EXPECT_EQ(rows->value(0), Variant(300000));
}

TEST_F(Limits, TheWaitForALockIsNotTheStatementsTime) {
    const auto writer = Connection::open(file_.path());
    const auto waiter =
        Connection::open(file_.path(), {.statement = 200ms, .lock = std::chrono::seconds(10)});
    writer->session()->begin();
    writer->session()->run("Insert Into t Values (1)");
    std::string text;
    std::thread other([&] { text = errorOf([&] { waiter->Execute("Update t Set a = 2"); }); });
    std::this_thread::sleep_for(600ms);
    writer->session()->commit();
    other.join();
    EXPECT_EQ(text, "");
}

TEST_F(Limits, AnEndlessWaitForALockIsStoppedByWhoeverWaits) {
    const auto writer = Connection::open(file_.path());
    const auto waiter = Connection::open(file_.path(), {.lock = 0ms});
    writer->session()->begin();
    writer->session()->run("Insert Into t Values (1)");
    int calls = 0;
    waiter->setWaiting([&] { return ++calls < 3; });
    const auto start = Clock::now();
    EXPECT_NE(errorOf([&] { waiter->session()->run("Update t Set a = 2"); }), "");
    EXPECT_LT(Clock::now() - start, 20s);
    writer->session()->rollback();
}

TEST_F(Limits, OneWhoWritesAgainAndAgainLetsOthersIn) {
    const auto busy = Connection::open(file_.path());
    const auto seldom = Connection::open(file_.path(), {.lock = std::chrono::seconds(20)});
    std::atomic<bool> done = false;
    std::thread writing([&] {
        while (!done) {
            rdoTransaction transaction(*busy->session());
            busy->session()->run("Insert Into t Values (1)");
            std::this_thread::sleep_for(3ms);
            transaction.commit();
        }
    });
    const auto start = Clock::now();
    std::string text;
    for (int i = 0; i < 20 && text.empty(); ++i)
        text = errorOf([&] { seldom->Execute("Insert Into t Values (2)"); });
    done = true;
    writing.join();
    EXPECT_EQ(text, "");
    EXPECT_LT(Clock::now() - start, 15s);
}

}  // namespace
}  // namespace catalogador::sqlite
