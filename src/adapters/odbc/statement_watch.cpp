#include "adapters/odbc/statement_watch.h"

#include <system_error>

namespace catalogador::odbc {

namespace {

/// While no statement runs. A statement's limit is seldom shorter, and then the thread is woken.
constexpr std::chrono::seconds betweenLooks{60};

}  // namespace

StatementWatch::~StatementWatch() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_one();
    if (thread_.joinable()) thread_.join();
}

void StatementWatch::begin(std::chrono::milliseconds limit, std::chrono::milliseconds patience,
                           Means means) {
    const std::lock_guard lock(mutex_);
    means_ = std::move(means);
    patience_ = patience;
    outcome_ = Outcome::inTime;
    due_ = Clock::now() + limit;
    if (!thread_.joinable()) {
        looks_ = *due_;
        try {
            thread_ = std::thread([this] { run(); });
        } catch (const std::system_error&) {
            due_.reset();
        }
    } else if (*due_ < looks_) {
        wake_.notify_one();
    }
}

StatementWatch::Outcome StatementWatch::end() {
    std::unique_lock lock(mutex_);
    acted_.wait(lock, [this] { return !dropping_; });
    due_.reset();
    means_ = {};
    return outcome_;
}

void StatementWatch::run() {
    std::unique_lock lock(mutex_);
    while (!ending_) {
        const Clock::time_point now = Clock::now();
        if (due_ && *due_ <= now) {
            act(lock);
            continue;
        }
        looks_ = due_ ? *due_ : now + betweenLooks;
        wake_.wait_until(lock, looks_);
    }
}

void StatementWatch::act(std::unique_lock<std::mutex>& lock) {
    if (outcome_ == Outcome::inTime) {
        outcome_ = Outcome::cancelled;
        due_ = Clock::now() + patience_;
        // The lock is kept: the statement's handle must not be freed meanwhile.
        if (means_.cancel) means_.cancel();
        return;
    }
    outcome_ = Outcome::dropped;
    due_.reset();
    dropping_ = true;
    const auto drop = means_.drop;
    lock.unlock();
    if (drop) drop();
    lock.lock();
    dropping_ = false;
    acted_.notify_all();
}

}  // namespace catalogador::odbc
