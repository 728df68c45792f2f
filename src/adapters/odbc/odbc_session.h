#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/defences.h"
#include "adapters/odbc/link.h"
#include "adapters/odbc/statement_runner.h"
#include "adapters/odbc/transactions.h"
#include "adapters/sql/sql_session.h"
#include "platform/rdo_plan.h"

namespace catalogador::odbc {

/// A connection to a database as the resultsets opened on it share it. It lets through what may be
/// run, and repeats what a lost connection kept from being read.
class OdbcSession : public sql::SqlSession, public rdoPlanner {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, never with a password.
    explicit OdbcSession(const std::string& connectionString, const sql::Timeouts& timeouts = {},
                         const Defences& defences = {});
    /// On a connection that somebody else has opened and will close; it is not made again when it
    /// is lost, and its settings are left as they are. Raises RuntimeError (statementFailed).
    explicit OdbcSession(OdbcHandle borrowed);

    [[nodiscard]] const sql::Dialect& dialect() const override { return link_.dialect(); }
    [[nodiscard]] const sql::SqlSyntax& syntax() const override { return link_.state.syntax; }
    /// The driver manager's handle of the connection, for somebody else to use too.
    [[nodiscard]] SQLHANDLE lend();

    void announce(const SqlText& sql) override;
    void forgetAnnounced() override { carriesData_ = false; }

    /// Runs one statement on a connection that lives: one that was lost is made again first, and a
    /// query that finds it lost is asked once more. A write is never repeated, nor anything in a
    /// transaction. The statement that is given back holds the rows, if any. `warnings` gets what
    /// the driver has to say of a statement that was run. Outside of a transaction a statement can
    /// write only with that access. Raises RuntimeError (statementFailed).
    Statement execute(const std::string& sql, const std::vector<sql::Parameter>& parameters = {},
                      std::string* warnings = nullptr, sql::Access access = sql::Access::reading);

    std::unique_ptr<sql::SqlRows> open(const std::string& sql) override;

    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Variant>& values = {}) override;
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) override;
    std::vector<std::vector<Variant>> query(const sql::ParameterizedStatement& statement) override;
    std::int64_t write(const sql::ParameterizedStatement& statement) override;

    [[nodiscard]] bool inTransaction() const override { return transactions_.isOpen(); }
    void begin() override { transactions_.begin(); }
    void commit() override { transactions_.commit(); }
    void rollback() override { transactions_.rollback(); }

    StatementPlan prepare(const std::string& sql) override;
    void beginReading() override { transactions_.beginReading(); }

    void setWaiting(const std::function<bool()>& waiting) override { runner_.waiting = waiting; }

  private:
    /// Runs what a dialect sets the session up with.
    class Commands;

    /// Sets up the session on a new connection.
    void setUp();
    /// Connects again if the connection was lost and there is no transaction.
    void makeReady();
    /// Waits for what the server was doing on the lost connection when its answer got lost.
    void awaitUnanswered();
    /// A statement with data, of which nothing may remain but its rows.
    Statement executeWithData(const std::string& text);
    Statement executeInReading(const std::string& begin, const std::string& text);

    Link link_;
    StatementRunner runner_{link_};
    Transactions transactions_{link_, runner_, [this] { makeReady(); }};
    /// The statement that is being executed holds data.
    bool carriesData_ = false;
    /// The function that its data names and that a check must not call; empty when it names none.
    std::string_view reaching_;
};

}  // namespace catalogador::odbc
