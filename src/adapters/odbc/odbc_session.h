#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/odbc_handle.h"
#include "adapters/sql/fair_turns.h"
#include "adapters/sql/sql_session.h"
#include "adapters/sql/timeouts.h"
#include "platform/dialect.h"
#include "platform/rdo.h"
#include "runtime/error.h"

namespace catalogador {

/// A connection to a database as the resultsets opened on it share it.
class OdbcSession : public SqlSession {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, never with a password.
    explicit OdbcSession(const std::string& connectionString, const Timeouts& timeouts = {});
    /// On a connection that somebody else has opened and will close; it is not made again when it
    /// is lost. Raises RuntimeError (statementFailed).
    explicit OdbcSession(OdbcHandle borrowed);
    ~OdbcSession() override;
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;

    [[nodiscard]] Dialect dialect() const override { return dialect_; }
    /// The driver manager's handle of the connection, for somebody else to use beside the session.
    [[nodiscard]] SQLHANDLE lend();
    [[nodiscard]] const SqlSyntax& syntax() const override { return syntax_; }

    /// Runs one statement on a connection that lives: one that was lost is made again first, and a
    /// query that finds it lost is asked once more. A write is never repeated, nor anything in a
    /// transaction. The handle that is given back holds the rows, if any. `warnings` gets what the
    /// driver has to say of a statement that was run.
    OdbcHandle execute(const std::string& sql, const std::vector<Parameter>& parameters = {},
                       std::string* warnings = nullptr);
    /// The columns of the rows that a statement returned when it was executed; none when it
    /// returns no rows.
    [[nodiscard]] std::vector<ColumnInfo> columnsOf(const OdbcHandle& statement,
                                                    const std::string& sql) const;
    [[nodiscard]] static std::int64_t touchedRows(const OdbcHandle& statement);
    /// Frees a statement with many rows, which takes a driver long, beside what the caller does
    /// next; at once where others use the connection too.
    void freeBeside(OdbcHandle statement);
    /// Waits until no statement is being freed.
    void settle() const override;

    std::unique_ptr<SqlRows> open(const std::string& sql) override;

    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Variant>& values = {}) override;
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) override;
    std::vector<std::vector<Variant>> query(const ParameterizedStatement& statement) override;
    std::int64_t write(const ParameterizedStatement& statement) override;

    /// An inner transaction is a savepoint of the outer.
    void begin() override;
    void commit() override;
    void rollback() override;

    /// Called while a statement runs long, if not empty; false stops the statement.
    std::function<bool()> waiting;

  private:
    [[nodiscard]] std::vector<std::vector<Variant>> rowsOf(const OdbcHandle& statement,
                                                           const std::string& sql) const;
    void connect();
    void prepareDialect();
    void preparePostgresql();
    void prepareMariadb();
    OdbcHandle executeOnce(const std::string& text, const std::vector<Parameter>& parameters,
                           std::string* warnings);
    [[nodiscard]] SQLRETURN runText(const OdbcHandle& statement, const std::string& text) const;
    /// Whether a failure means that the connection is gone.
    [[nodiscard]] bool meansLost(const RuntimeError& error) const;
    void reconnectIfLost();
    void setAutocommit(bool on);
    void leaveAutocommit();
    void beginSqlite();
    void endTransaction(SQLSMALLINT how);
    [[nodiscard]] std::string savepoint() const;

    std::string connectionString_;
    Timeouts timeouts_;
    OdbcHandle environment_;
    OdbcHandle connection_;
    /// Connections that were lost, kept as long as resultsets may hold statements of theirs.
    std::vector<OdbcHandle> lostConnections_;
    Dialect dialect_ = Dialect::other;
    SqlSyntax syntax_;
    int transactions_ = 0;
    /// The driver of SQLite looks for the file's lock every ten milliseconds.
    FairTurns turns_{std::chrono::milliseconds(11)};
    bool borrowed_ = false;
    bool lent_ = false;
    bool connected_ = false;
    bool lost_ = false;
    std::future<void> freeing_;
};

}  // namespace catalogador
