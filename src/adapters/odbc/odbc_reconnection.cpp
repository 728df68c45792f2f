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
            if (dialect_ == Dialect::mariadb) waitForOtherNodes();
            if (dialect_ == Dialect::mariadb && hosts_.size() > 1) requireReady();
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

void OdbcSession::requireReady() {
    const auto is = [&](const std::string& sql, const char* value) {
        const auto rows = rowsOf(executeOnce(sql, {}, nullptr), sql);
        return !rows.empty() && rows.front().at(1) == Variant(value);
    };
    // A node that has lost its cluster takes connections, but no statement. A server that belongs
    // to none is never ready for one.
    if (is("SHOW VARIABLES LIKE 'wsrep_on'", "ON") && is("SHOW STATUS LIKE 'wsrep_ready'", "OFF"))
        throw RuntimeError(error_number::statementFailed, "The node is not part of its cluster",
                           ErrorCause::lost);
}

void OdbcSession::waitForOtherNodes() {
    try {
        // What the other nodes of a cluster have committed is here when it is asked for.
        executeOnce("SET SESSION wsrep_sync_wait = 1", {}, nullptr);
    } catch (const RuntimeError& error) {
        if (error.cause() == ErrorCause::lost) throw;
        // A server that was built without clusters.
    }
}

void OdbcSession::awaitUnanswered() {
    using namespace std::chrono_literals;
    constexpr auto betweenTwoLooks = 50ms;
    const std::string id = std::exchange(unanswered_, {});
    const bool mariadb = dialect_ == Dialect::mariadb;
    if (id.empty()) return;
    if (host_ != unansweredHost_) return;
    const std::string sql =
        mariadb ? "SELECT 1 FROM information_schema.processlist WHERE command <> 'Sleep' AND id = "
                : "SELECT 1 FROM pg_stat_activity WHERE state <> 'idle' AND pid = ";
    const auto end = std::chrono::steady_clock::now() + sql::endless(timeouts_.lock);
    while (!rowsOf(executeOnce(sql + id, {}, nullptr), sql).empty()) {
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
        unanswered_ = process_;
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
