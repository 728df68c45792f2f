#pragma once
#include <chrono>

namespace catalogador::sql {

/// How long a user is kept waiting before an error is told; 0 waits without end. Databases that
/// count in seconds get the next whole one.
struct Timeouts {
    /// For the server to accept the connection.
    std::chrono::milliseconds login{15'000};
    /// For a statement to end. SQLite files have no such limit.
    std::chrono::milliseconds statement{60'000};
    /// For what another user is writing. The wait of a SQLite file may also stand in its connection
    /// string, which then counts.
    std::chrono::milliseconds lock{5'000};
};

/// The next whole second.
inline std::chrono::seconds wholeSeconds(std::chrono::milliseconds time) {
    return std::chrono::ceil<std::chrono::seconds>(time);
}

/// For databases to which 0 is no wait at all: the longest that all of them take.
inline std::chrono::milliseconds endless(std::chrono::milliseconds time) {
    return time.count() == 0 ? std::chrono::hours(24 * 7) : time;
}

}  // namespace catalogador::sql
