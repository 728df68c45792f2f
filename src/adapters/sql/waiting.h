#pragma once
#include <chrono>
#include <functional>
#include <future>
#include <system_error>

namespace catalogador::sql {

/// Does `work` in a thread beside the caller, who is meanwhile told by `waiting`: as soon as the
/// work runs, and then now and again. Once that gives false, `stop` is called now and again until
/// the work ends. Gives what the work gives, and raises what it raises. Without `waiting`, or where
/// no thread is to be had, the caller does the work.
template <class Work>
auto workBeside(const std::function<bool()>& waiting, const Work& work,
                const std::function<void()>& stop) -> decltype(work()) {
    if (!waiting) return work();
    constexpr std::chrono::milliseconds betweenCalls{100};
    std::future<decltype(work())> result;
    try {
        result = std::async(std::launch::async, std::cref(work));
    } catch (const std::system_error&) {
        return work();
    }
    // The first call finds the work running: what can be done in the meantime, is.
    bool wanted = waiting();
    while (result.wait_for(betweenCalls) != std::future_status::ready) {
        wanted = wanted && waiting();
        if (!wanted) stop();
    }
    return result.get();
}

}  // namespace catalogador::sql
