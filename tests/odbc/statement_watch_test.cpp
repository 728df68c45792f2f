#include "adapters/odbc/statement_watch.h"

#include <gtest/gtest.h>

#include <atomic>

namespace catalogador::odbc {
namespace {

using namespace std::chrono_literals;
using Outcome = odbc::StatementWatch::Outcome;

template <class Condition>
bool comesTrue(Condition condition) {
    const auto end = odbc::StatementWatch::Clock::now() + 10s;
    while (!condition() && odbc::StatementWatch::Clock::now() < end)
        std::this_thread::sleep_for(1ms);
    return condition();
}

TEST(StatementWatch, LeavesAStatementAloneThatEndsInTime) {
    odbc::StatementWatch watch;
    std::atomic<int> calls = 0;
    for (int i = 0; i < 100; ++i) {
        watch.begin(1h, 1h, {[&] { ++calls; }, [&] { ++calls; }});
        EXPECT_EQ(watch.end(), Outcome::inTime);
    }
    EXPECT_EQ(calls, 0);
}

TEST(StatementWatch, CancelsAStatementThatOutlivesItsLimit) {
    odbc::StatementWatch watch;
    // One that has a long time is watched before it: the thread is waiting for that.
    watch.begin(1h, 1h, {});
    watch.end();
    std::atomic<int> cancelled = 0;
    std::atomic<int> dropped = 0;
    watch.begin(20ms, 1h, {[&] { ++cancelled; }, [&] { ++dropped; }});
    EXPECT_TRUE(comesTrue([&] { return cancelled > 0; }));
    EXPECT_EQ(watch.end(), Outcome::cancelled);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(dropped, 0);
}

TEST(StatementWatch, DropsTheConnectionWhenCancellingDoesNotHelp) {
    odbc::StatementWatch watch;
    std::atomic<int> cancelled = 0;
    std::atomic<int> dropped = 0;
    watch.begin(10ms, 10ms, {[&] { ++cancelled; }, [&] { ++dropped; }});
    EXPECT_TRUE(comesTrue([&] { return dropped > 0; }));
    EXPECT_EQ(watch.end(), Outcome::dropped);
    EXPECT_EQ(cancelled, 1);
    EXPECT_EQ(dropped, 1);
    watch.begin(1h, 1h, {});
    EXPECT_EQ(watch.end(), Outcome::inTime);
}

}  // namespace
}  // namespace catalogador::odbc
