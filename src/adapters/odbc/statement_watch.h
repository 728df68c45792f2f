#pragma once
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace catalogador::odbc {

/// Stops a statement that outlives its limit, from another thread and whatever the statement says:
/// it is cancelled first, and its connection dropped when that does not help.
class StatementWatch {
  public:
    using Clock = std::chrono::steady_clock;

    enum class Outcome { inTime, cancelled, dropped };

    /// Both may fail silently; neither may raise. `cancel` is not called after the statement has
    /// ended.
    struct Means {
        std::function<void()> cancel;
        std::function<void()> drop;
    };

    StatementWatch() = default;
    ~StatementWatch();
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;

    /// A statement begins that may take so long; and so long again after it was cancelled. One at a
    /// time. Nothing is watched where there is no thread to be had.
    void begin(std::chrono::milliseconds limit, std::chrono::milliseconds patience, Means means);
    /// The statement has ended.
    Outcome end();

  private:
    void run();
    void act(std::unique_lock<std::mutex>& lock);

    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable acted_;
    std::thread thread_;
    bool ending_ = false;
    bool dropping_ = false;
    /// When something has to be done; none while no statement runs.
    std::optional<Clock::time_point> due_;
    /// When the thread looks next.
    Clock::time_point looks_;
    std::chrono::milliseconds patience_{0};
    Outcome outcome_ = Outcome::inTime;
    Means means_;
};

}  // namespace catalogador::odbc
