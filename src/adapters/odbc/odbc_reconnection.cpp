#include <chrono>
#include <thread>
#include <utility>

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_session.h"
#include "runtime/error.h"

namespace catalogador::odbc {

void OdbcSession::connect() {
    for (std::size_t tries = 1;; ++tries) {
        try {
            connectTo(hosts_.at(host_));
            joinCluster();
            return;
        } catch (const RuntimeError&) {
            if (tries >= hosts_.size()) throw;
            useNextHost();
        }
    }
}

void OdbcSession::connectTo(const std::string& connectionString) {
    access_.reset();
    connection_ = OdbcHandle(SQL_HANDLE_DBC, environment_);
    SQLSetConnectAttr(
        connection_.get(), SQL_ATTR_LOGIN_TIMEOUT,
        attributeValue(static_cast<std::uintptr_t>(sql::wholeSeconds(timeouts_.login).count())), 0);
    const SQLRETURN result = connectDriver(connection_.get(), connectionString);
    if (!SQL_SUCCEEDED(result))
        throw RuntimeError(error_number::statementFailed,
                           withoutPasswords(connection_.diagnostics(), connectionString_),
                           ErrorCause::lost);
    connection_.disconnectAtEnd();
    prepareDialect();
}

void OdbcSession::awaitUnanswered() {
    using namespace std::chrono_literals;
    constexpr auto betweenTwoLooks = 50ms;
    const std::string id = std::exchange(unanswered_, {});
    if (id.empty()) return;
    if (host_ != unansweredHost_) return;
    const std::string sql = std::string(dialect_->facts().busySessionQuery) + id;
    const auto end = std::chrono::steady_clock::now() + sql::endless(timeouts_.lock);
    while (!rowsOf(executeOnce(sql, {}, nullptr), sql).empty()) {
        if (std::chrono::steady_clock::now() > end)
            throw RuntimeError(error_number::statementFailed,
                               "The server is still at work on the commit that it has not answered",
                               ErrorCause::outcomeUnknown);
        std::this_thread::sleep_for(betweenTwoLooks);
    }
}

void OdbcSession::endFailed(SQLSMALLINT how, const RuntimeError& error) {
    if (meansLost(error)) {
        lost_ = true;
        if (how != SQL_COMMIT) throw;
        unanswered_ = state_.process;
        unansweredHost_ = host_;
        throw RuntimeError(error.number(), error.description(), ErrorCause::outcomeUnknown);
    }
    if (how == SQL_COMMIT) SQLEndTran(SQL_HANDLE_DBC, connection_.get(), SQL_ROLLBACK);
    returnToAutocommit();
    throw;
}

void OdbcSession::returnToAutocommit() {
    try {
        setAutocommit(true);
    } catch (const RuntimeError&) {
        // The transaction has ended as it was told to. The connection is no use any more.
        lost_ = true;
    }
}

}  // namespace catalogador::odbc
