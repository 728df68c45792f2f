#pragma once
#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "adapters/odbc/link.h"
#include "adapters/odbc/statement_runner.h"
#include "adapters/sql/fair_turns.h"

namespace catalogador::odbc {

/// The transactions of a session, and what its statements may do outside of them. An inner
/// transaction is a savepoint of the outer one. The members that reach the database raise
/// RuntimeError (statementFailed).
class Transactions {
  public:
    /// `link` and `runner` must outlive this. `makeReady` connects again when the connection was
    /// lost and there is no transaction.
    Transactions(Link& link, StatementRunner& runner, std::function<void()> makeReady);

    [[nodiscard]] bool isOpen() const { return depth_ > 0; }
    void begin();
    /// Begins a transaction in which the database refuses to write. Raises RuntimeError
    /// (invalidProcedureCall) inside of another.
    void beginReading();
    /// Both raise RuntimeError (invalidProcedureCall) when none was begun. The cause outcomeUnknown
    /// means that the commit was not answered.
    void commit();
    void rollback();

    /// What the next statement outside of a transaction may do, where the program has a say.
    void allow(sql::Access access);
    /// The connection is a new one, of which nothing was set yet.
    void connectionMade() { access_.reset(); }

  private:
    void tell(const std::string& text);
    void leaveAutocommit(sql::Access access);
    void setAutocommit(bool on);
    void returnToAutocommit();
    void end(SQLSMALLINT how);
    void endByStatement(SQLSMALLINT how);
    /// Raises the error that is being handled, with what it means for the transaction.
    [[noreturn]] void endFailed(SQLSMALLINT how, const RuntimeError& error);
    [[nodiscard]] std::string savepoint() const;

    Link& link_;
    StatementRunner& runner_;
    std::function<void()> makeReady_;
    int depth_ = 0;
    bool reading_ = false;
    /// What the session was last set to; nothing for how it was opened.
    std::optional<sql::Access> access_;
    /// The driver of SQLite looks for the file's lock every ten milliseconds.
    sql::FairTurns turns_{std::chrono::milliseconds(11)};
};

}  // namespace catalogador::odbc
