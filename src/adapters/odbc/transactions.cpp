#include "adapters/odbc/transactions.h"

#include <utility>

#include "runtime/text.h"

namespace catalogador::odbc {

Transactions::Transactions(Link& link, StatementRunner& runner, std::function<void()> makeReady)
    : link_(link), runner_(runner), makeReady_(std::move(makeReady)) {}

void Transactions::allow(sql::Access access) {
    if (!link_.isGuarded() || isOpen() || access_ == access) return;
    const std::string statement = link_.dialect().accessStatement(access);
    if (statement.empty()) return;
    runner_.run(statement);
    access_ = access;
}

void Transactions::tell(const std::string& text) {
    makeReady_();
    allow(sql::Access::writing);
    try {
        runner_.run(text);
    } catch (const RuntimeError& error) {
        if (link_.isLostBy(error, isOpen())) link_.setLost();
        throw;
    }
}

void Transactions::begin() {
    makeReady_();
    if (isOpen()) {
        tell("SAVEPOINT " + savepoint());
    } else if (const std::string begin(link_.dialect().facts().beginWriting); !begin.empty()) {
        turns_.beforeTurn();
        tell(begin);
        turns_.turnBegan();
    } else {
        leaveAutocommit(sql::Access::writing);
    }
    ++depth_;
}

void Transactions::beginReading() {
    makeReady_();
    if (isOpen())
        throw RuntimeError(error_number::invalidProcedureCall, "A transaction was begun before");
    if (const std::string begin(link_.dialect().facts().beginReading); !begin.empty()) {
        allow(sql::Access::reading);
        runner_.run(link_.dialect().accessStatement(sql::Access::reading));
        reading_ = true;
        runner_.run(begin);
    } else {
        leaveAutocommit(sql::Access::reading);
        // Nothing that set the session up has made it read-only.
        runner_.run("SET TRANSACTION READ ONLY");
    }
    ++depth_;
}

void Transactions::commit() {
    if (depth_ < 2) return end(SQL_COMMIT);
    --depth_;
    tell("RELEASE SAVEPOINT " + savepoint());
}

void Transactions::rollback() {
    if (depth_ < 2) return end(SQL_ROLLBACK);
    --depth_;
    tell("ROLLBACK TO SAVEPOINT " + savepoint());
}

void Transactions::end(SQLSMALLINT how) {
    if (!isOpen())
        throw RuntimeError(error_number::invalidProcedureCall, "No transaction was begun");
    if (!link_.dialect().facts().beginWriting.empty()) return endByStatement(how);
    // Whatever comes of it, the transaction is over: a server that is gone has rolled it back.
    depth_ = 0;
    // Not every driver tells that there is nothing left to commit.
    if (link_.isLost() && how == SQL_COMMIT)
        throw RuntimeError(error_number::statementFailed,
                           "08S01: The connection was lost; nothing of the transaction is stored",
                           ErrorCause::lost);
    const OdbcHandle& connection = runner_.connection();
    try {
        connection.check(SQLEndTran(SQL_HANDLE_DBC, connection.get(), how));
    } catch (const RuntimeError& error) {
        endFailed(how, error);
    }
    returnToAutocommit();
}

void Transactions::endByStatement(SQLSMALLINT how) {
    tell(how == SQL_COMMIT ? "COMMIT" : "ROLLBACK");
    depth_ = 0;
    const bool wasReading = std::exchange(reading_, false);
    if (wasReading && !link_.isGuarded())
        runner_.run(link_.dialect().accessStatement(sql::Access::writing));
    turns_.turnEnded();
}

void Transactions::endFailed(SQLSMALLINT how, const RuntimeError& error) {
    if (link_.isLostBy(error, false)) {
        link_.setLost();
        if (how != SQL_COMMIT) throw;
        link_.leaveUnanswered();
        throw RuntimeError(error.number(), error.description(), ErrorCause::outcomeUnknown);
    }
    if (how == SQL_COMMIT) SQLEndTran(SQL_HANDLE_DBC, link_.connection().get(), SQL_ROLLBACK);
    returnToAutocommit();
    throw;
}

void Transactions::leaveAutocommit(sql::Access access) {
    try {
        allow(access);
        return setAutocommit(false);
    } catch (const RuntimeError& error) {
        if (!link_.isLostBy(error, isOpen())) throw;
        link_.setLost();
    }
    // Nothing was done in the transaction yet.
    makeReady_();
    allow(access);
    setAutocommit(false);
}

void Transactions::setAutocommit(bool on) {
    const OdbcHandle& connection = runner_.connection();
    connection.check(SQLSetConnectAttr(connection.get(), SQL_ATTR_AUTOCOMMIT,
                                       attributeValue(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                       0));
}

void Transactions::returnToAutocommit() {
    try {
        setAutocommit(true);
    } catch (const RuntimeError&) {
        // The transaction has ended as it should, but the connection can no longer be used.
        link_.setLost();
    }
}

std::string Transactions::savepoint() const {
    return "catalogador_" + decimalText(depth_);
}

}  // namespace catalogador::odbc
