#pragma once
#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

#include "adapters/sql/timeouts.h"
#include "adapters/sqlite/guard.h"

namespace catalogador::sqlite {

/// An open database file, with limits that no statement gets around. Every member raises
/// RuntimeError (statementFailed) with SQLite's own text.
class Database {
  public:
    /// Opens a file that exists, or makes it when `create`. A file that may not be written is
    /// opened for reading. `guarded` leaves the schema and SQLite's own settings alone for good.
    Database(const std::string& file, bool create, bool guarded, const sql::Timeouts& timeouts);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    [[nodiscard]] sqlite3* get() const { return handle_.get(); }

    /// A statement begins: its time is counted from here.
    void beginStatement();
    /// What the statement that runs now may do.
    void allow(Access access) { access_ = access; }
    /// Stops the statement that runs. May be called from another thread.
    void stop() { stopped_ = true; }

    /// Raises the error that `result` stands for; nothing for a success.
    void check(int result) const;

  private:
    using Clock = std::chrono::steady_clock;
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    void harden(bool guarded);
    [[nodiscard]] bool goesOn() const;
    bool waitForLock(int tries);

    std::unique_ptr<sqlite3, Close> handle_;
    sql::Timeouts timeouts_;
    Access access_ = Access::everything;
    std::atomic<bool> stopped_ = false;
    /// The maximum when there is no limit.
    Clock::time_point statementEnd_ = Clock::time_point::max();
    Clock::time_point lockEnd_ = Clock::time_point::max();
    unsigned lastPause_ = 0;
};

/// One prepared statement.
class Statement {
  public:
    /// Raises RuntimeError (statementFailed), also for a text with more than one statement.
    Statement(Database& database, const std::string& sql, Access access);

    [[nodiscard]] sqlite3_stmt* get() const { return handle_.get(); }
    /// Goes to the next row; false when there is none.
    bool step();

  private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    Database& database_;
    Access access_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

}  // namespace catalogador::sqlite
