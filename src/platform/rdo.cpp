#include "platform/rdo.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "runtime/error.h"

namespace catalogador {

namespace {

/// Up to twice as long after every failure, and never the same for two users who have met.
std::chrono::milliseconds pauseAfter(int tries) {
    constexpr int shortest = 10;
    constexpr int longest = 400;
    thread_local std::mt19937 random{std::random_device{}()};
    const int limit = std::min(longest, shortest << std::min(tries - 1, 10));
    return std::chrono::milliseconds(std::uniform_int_distribution<int>(1, limit)(random));
}

}  // namespace

rdoTransaction::~rdoTransaction() {
    if (!open_) return;
    try {
        session_.rollback();
    } catch (const RuntimeError&) {
        // The database has ended the transaction itself; the first error is on its way already.
    }
}

void rdoTransaction::commit() {
    session_.commit();
    open_ = false;
}

void retryConflicts(rdoSession& session, const std::function<void()>& work) {
    constexpr int maximumTries = 12;
    const bool repeatable = !session.inTransaction();
    for (int tries = 1;; ++tries) {
        try {
            return work();
        } catch (const RuntimeError& error) {
            if (!repeatable || error.cause() != ErrorCause::conflict || tries == maximumTries)
                throw;
        }
        std::this_thread::sleep_for(pauseAfter(tries));
    }
}

void inTransaction(rdoSession& session, const std::function<void()>& work) {
    retryConflicts(session, [&] {
        rdoTransaction transaction(session);
        work();
        transaction.commit();
    });
}

}  // namespace catalogador
