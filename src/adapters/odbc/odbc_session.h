#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/defences.h"
#include "adapters/odbc/odbc_handle.h"
#include "adapters/odbc/statement_watch.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/fair_turns.h"
#include "adapters/sql/sql_session.h"
#include "adapters/sql/timeouts.h"
#include "platform/rdo_plan.h"
#include "runtime/error.h"

namespace catalogador::odbc {

/// A connection to a database as the resultsets opened on it share it.
class OdbcSession : public sql::SqlSession, public rdoPlanner {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, never with a password.
    explicit OdbcSession(const std::string& connectionString, const sql::Timeouts& timeouts = {},
                         const Defences& defences = {});
    /// On a connection that somebody else has opened and will close; it is not made again when it
    /// is lost, and its settings are left as they are. Raises RuntimeError (statementFailed).
    explicit OdbcSession(OdbcHandle borrowed);
    ~OdbcSession() override;
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;

    [[nodiscard]] const sql::Dialect& dialect() const override { return *dialect_; }
    /// The driver manager's handle of the connection, for somebody else to use beside the session.
    [[nodiscard]] SQLHANDLE lend();
    [[nodiscard]] const sql::SqlSyntax& syntax() const override { return state_.syntax; }

    /// While it lives, what the session executes is that statement.
    class Announced {
      public:
        /// Raises DataRefused when the statement's data would not stay data.
        Announced(OdbcSession& session, const SqlText& sql);
        ~Announced() { session_.carriesData_ = false; }
        Announced(const Announced&) = delete;
        Announced& operator=(const Announced&) = delete;

      private:
        OdbcSession& session_;
    };

    /// Runs one statement on a connection that lives: one that was lost is made again first, and a
    /// query that finds it lost is asked once more. A write is never repeated, nor anything in a
    /// transaction. The handle that is given back holds the rows, if any. `warnings` gets what the
    /// driver has to say of a statement that was run. Outside of a transaction a statement can
    /// write only with that access.
    OdbcHandle execute(const std::string& sql, const std::vector<sql::Parameter>& parameters = {},
                       std::string* warnings = nullptr, sql::Access access = sql::Access::reading);
    /// The columns of the rows that a statement returned when it was executed; none when it
    /// returns no rows.
    [[nodiscard]] std::vector<sql::ColumnInfo> columnsOf(const OdbcHandle& statement,
                                                         const std::string& sql) const;
    [[nodiscard]] static std::int64_t touchedRows(const OdbcHandle& statement);
    /// Frees a statement with many rows, which takes a driver long, beside what the caller does
    /// next; at once where others use the connection too.
    void freeBeside(OdbcHandle statement);
    /// Waits until no statement is being freed.
    void settle() const override;

    std::unique_ptr<sql::SqlRows> open(const std::string& sql) override;

    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Variant>& values = {}) override;
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) override;
    std::vector<std::vector<Variant>> query(const sql::ParameterizedStatement& statement) override;
    std::int64_t write(const sql::ParameterizedStatement& statement) override;

    [[nodiscard]] bool inTransaction() const override { return transactions_ > 0; }
    /// An inner transaction is a savepoint of the outer.
    void begin() override;
    void commit() override;
    void rollback() override;

    StatementPlan prepare(const std::string& sql) override;
    void beginReading() override;

    /// Called while a statement runs long, if not empty; false stops the statement.
    std::function<bool()> waiting;

  private:
    /// Runs what a dialect sets the session up with.
    class Commands;

    [[nodiscard]] std::vector<std::vector<Variant>> rowsOf(const OdbcHandle& statement,
                                                           const std::string& sql) const;
    /// To the host in use, or the next in the list that takes connections.
    void connect();
    void connectTo(const std::string& connectionString);
    void useNextHost() { host_ = (host_ + 1) % hosts_.size(); }
    /// Waits for what the server was doing on the lost connection when its answer got lost.
    void awaitUnanswered();
    void prepareDialect();
    void joinCluster();
    [[nodiscard]] sql::SessionSetUp setUp() const;
    /// Whether the program sets what the database does in this session.
    [[nodiscard]] bool guarded() const { return !borrowed_ && !lent_ && defences_.engine; }
    void setAccess(sql::Access access);
    /// How a statement is handed over.
    enum class Protocol {
        /// As the driver does it best.
        any,
        /// So that the server takes one command, and in MariaDB one that has rows.
        oneCommand
    };
    OdbcHandle executeOnce(const std::string& text, const std::vector<sql::Parameter>& parameters,
                           std::string* warnings, Protocol protocol = Protocol::any);
    /// A statement with data, of which nothing may remain but its rows.
    OdbcHandle executeWithData(const std::string& text);
    OdbcHandle executeInReading(const std::string& begin, const std::string& text);
    void requireRows(const OdbcHandle& statement, const std::string& text) const;
    /// Several commands of the program's own at once.
    void command(const std::string& text);
    /// What `run` gives, which is stopped when it outlives the limit.
    [[nodiscard]] SQLRETURN watched(const OdbcHandle& statement,
                                    const std::function<SQLRETURN()>& run);
    /// Stops a statement that another thread is executing.
    void cancel(const OdbcHandle& statement) const;
    void endSession() const;
    /// A command on a connection of its own, which fails silently.
    void runBeside(const std::string& text) const;
    [[nodiscard]] SQLRETURN runText(const OdbcHandle& statement, const std::string& text,
                                    Protocol protocol) const;
    /// Whether a failure means that the connection is gone.
    [[nodiscard]] bool meansLost(const RuntimeError& error) const;
    void reconnectIfLost();
    /// Raises the error that is being handled, with what it means for the transaction.
    [[noreturn]] void endFailed(SQLSMALLINT how, const RuntimeError& error);
    void returnToAutocommit();
    void setAutocommit(bool on);
    void leaveAutocommit(sql::Access access);
    void beginByStatement();
    void endTransaction(SQLSMALLINT how);
    void endReading();
    void readWithoutRunning(const std::string& text);
    [[nodiscard]] std::string savepoint() const;

    std::string connectionString_;
    /// A connection string for each host that it names, and the one in use.
    std::vector<std::string> hosts_;
    std::size_t host_ = 0;
    sql::Timeouts timeouts_;
    Defences defences_;
    OdbcHandle environment_;
    OdbcHandle connection_;
    const sql::Dialect* dialect_ = &sql::standardDialect();
    sql::SessionState state_;
    /// That of the connection whose commit was not answered, on which host; empty for none.
    std::string unanswered_;
    std::size_t unansweredHost_ = 0;
    int transactions_ = 0;
    bool reading_ = false;
    /// The driver of SQLite looks for the file's lock every ten milliseconds.
    sql::FairTurns turns_{std::chrono::milliseconds(11)};
    /// What the session was last set to; nothing for how it was opened.
    std::optional<sql::Access> access_;
    /// The statement that is being executed holds data.
    bool carriesData_ = false;
    /// The function that its data names and that a check must not call; empty when it names none.
    std::string_view reaching_;
    /// The last statement was stopped because of its limit.
    bool outlived_ = false;
    bool borrowed_ = false;
    bool lent_ = false;
    bool lost_ = false;
    std::future<void> freeing_;
    StatementWatch watch_;
};

}  // namespace catalogador::odbc
