#pragma once
#include <chrono>

namespace catalogador::sql {

/// Lets others in who wait for a lock that everybody looks for only now and then, as SQLite's:
/// while there are such others, one who writes again and again has to pause, or would take the
/// lock every time.
class FairTurns {
  public:
    using Clock = std::chrono::steady_clock;

    /// `betweenTwoLooks` is the longest time that somebody who waits does not look.
    explicit FairTurns(std::chrono::milliseconds betweenTwoLooks)
        : betweenTwoLooks_(betweenTwoLooks) {}

    /// To be called before the lock is asked for. Pauses where that is fair.
    void beforeTurn();
    /// The lock was given.
    void turnBegan();
    /// The lock was given back.
    void turnEnded() { ended_ = Clock::now(); }

  private:
    std::chrono::milliseconds betweenTwoLooks_;
    Clock::time_point asked_;
    Clock::time_point ended_;
    /// How long it is taken for granted that others are waiting.
    Clock::time_point othersUntil_;
};

}  // namespace catalogador::sql
