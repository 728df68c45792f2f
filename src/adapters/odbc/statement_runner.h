#pragma once
#include <functional>
#include <future>
#include <string>
#include <vector>

#include "adapters/odbc/link.h"
#include "adapters/odbc/odbc_handle.h"
#include "adapters/odbc/statement_watch.h"
#include "adapters/sql/write_statements.h"

namespace catalogador::odbc {

class StatementRunner;

/// A statement that was run. A connection is used by one thread at a time, so whoever gets at the
/// handle waits until nothing else is done on the connection.
class Statement {
  public:
    /// `runner` must outlive this.
    Statement(StatementRunner& runner, OdbcHandle handle)
        : runner_(&runner), handle_(std::move(handle)) {}
    ~Statement();
    Statement(Statement&&) noexcept = default;
    Statement& operator=(Statement&&) noexcept = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    [[nodiscard]] SQLHANDLE get() const;
    /// See OdbcHandle.
    [[nodiscard]] std::string diagnostics() const { return handle_.diagnostics(); }
    void check(SQLRETURN result) const { handle_.check(result); }

    /// The number of rows that it touched; 0 when the driver does not tell.
    [[nodiscard]] std::int64_t touchedRows() const;
    /// Frees a statement with many rows, which takes a driver long, beside what the caller does
    /// next; at once where others use the connection too. To be called last.
    void freeBeside();

  private:
    StatementRunner* runner_;
    OdbcHandle handle_;
};

/// Runs statements on a connection, within their limit of time, and owns the threads that work
/// beside the caller: one runs a statement while the caller waits, one stops a statement that
/// takes too long, and one frees statements.
class StatementRunner {
  public:
    /// `link` must outlive this.
    explicit StatementRunner(Link& link) : link_(link) {}
    ~StatementRunner();
    StatementRunner(const StatementRunner&) = delete;
    StatementRunner& operator=(const StatementRunner&) = delete;

    /// How a statement is handed over.
    enum class Protocol {
        /// As the driver does it best.
        any,
        /// So that the server takes one command, which has columns where the dialect says so.
        oneCommand
    };

    /// Runs a statement. `warnings` gets what the driver has to say of it, if not null. Raises
    /// RuntimeError (statementFailed).
    Statement run(const std::string& text, const std::vector<sql::Parameter>& parameters = {},
                  std::string* warnings = nullptr, Protocol protocol = Protocol::any);
    /// Runs several commands of the program's own at once, whose rows are dropped.
    void command(const std::string& text);
    /// Has the driver prepare a statement, and no more.
    void prepare(const std::string& text);

    /// The connection, once nothing is done on it any more.
    [[nodiscard]] const OdbcHandle& connection() const;
    [[nodiscard]] const sql::Dialect& dialect() const { return link_.dialect(); }
    /// Whether the last statement was stopped because of its limit.
    [[nodiscard]] bool wasStopped() const { return stopped_; }

    /// Called while a statement runs long, if not empty; false stops the statement.
    std::function<bool()> waiting;

    /// Waits until no statement is being freed any more.
    void settle() const;

  private:
    friend class Statement;

    void freeBeside(OdbcHandle statement);
    void requireColumns(const OdbcHandle& statement, const std::string& text) const;
    /// What `run` gives, which is stopped when it outlives the limit.
    [[nodiscard]] SQLRETURN watched(const OdbcHandle& statement,
                                    const std::function<SQLRETURN()>& run);
    /// Stops a statement that another thread is executing.
    void cancel(const OdbcHandle& statement) const;
    void endSession() const;
    [[nodiscard]] SQLRETURN runText(const OdbcHandle& statement, const std::string& text,
                                    Protocol protocol) const;

    Link& link_;
    bool stopped_ = false;
    std::future<void> freeing_;
    StatementWatch watch_;
};

}  // namespace catalogador::odbc
