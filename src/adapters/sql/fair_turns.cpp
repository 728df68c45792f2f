#include "adapters/sql/fair_turns.h"

#include <thread>

namespace catalogador::sql {

void FairTurns::beforeTurn() {
    if (Clock::now() < othersUntil_) std::this_thread::sleep_until(ended_ + betweenTwoLooks_);
    asked_ = Clock::now();
}

void FairTurns::turnBegan() {
    constexpr std::chrono::milliseconds noticeableWait{5};
    constexpr std::chrono::seconds memoryOfOthers{5};
    const auto now = Clock::now();
    if (now - asked_ > noticeableWait) othersUntil_ = now + memoryOfOthers;
}

}  // namespace catalogador::sql
