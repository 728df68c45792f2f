#include "adapters/odbc/link.h"

#include <utility>

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/driver_text.h"

namespace catalogador::odbc {

Link::Link(const std::string& connectionString, const sql::Timeouts& timeouts,
           const Defences& defences)
    : connectionString_(withTimeouts(connectionString, timeouts)),
      timeouts_(timeouts),
      defences_(defences),
      environment_(SQL_HANDLE_ENV, OdbcHandle()) {
    if (defences_.engine) connectionString_ = withOneCommand(connectionString_);
    hosts_ = eachHost(connectionString_);
    environment_.check(
        SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, attributeValue(SQL_OV_ODBC3), 0));
}

Link::Link(OdbcHandle borrowed) : connection_(std::move(borrowed)), borrowed_(true) {
    dialect_ = &sql::dialectOfProduct(productName(connection_.get()));
    state = {.syntax = dialect_->facts().syntax};
}

void Link::connect(const std::function<void()>& setUp) {
    for (std::size_t tries = 1;; ++tries) {
        try {
            connectTo(hosts_.at(host_));
            return setUp();
        } catch (const RuntimeError&) {
            if (tries >= hosts_.size()) throw;
            useNextHost();
        }
    }
}

void Link::connectAgain(const std::function<void()>& setUp) {
    useNextHost();
    connect(setUp);
}

OdbcHandle Link::unconnected() const {
    OdbcHandle connection(SQL_HANDLE_DBC, environment_);
    const auto login = static_cast<std::uintptr_t>(sql::wholeSeconds(timeouts_.login).count());
    SQLSetConnectAttr(connection.get(), SQL_ATTR_LOGIN_TIMEOUT, attributeValue(login), 0);
    return connection;
}

void Link::connectTo(const std::string& connectionString) {
    connection_ = unconnected();
    const SQLRETURN result = connectDriver(connection_.get(), connectionString);
    if (!SQL_SUCCEEDED(result))
        throw RuntimeError(error_number::statementFailed,
                           withoutPasswords(connection_.diagnostics(), connectionString_),
                           ErrorCause::lost);
    connection_.disconnectAtEnd();
    dialect_ = &sql::dialectOfProduct(productName(connection_.get()));
    state = {.syntax = dialect_->facts().syntax};
}

sql::SessionSetUp Link::setUp() const {
    return {.timeouts = timeouts_,
            .borrowed = borrowed_,
            .oneCommand = defences_.engine,
            .saysLockWait = hasKey(connectionString_, "Timeout"),
            .severalHosts = hosts_.size() > 1};
}

bool Link::isLostBy(const RuntimeError& error, bool inTransaction) const {
    if (dialect_->facts().isFile) return false;
    if (error.cause() == ErrorCause::lost || error.cause() == ErrorCause::outcomeUnknown)
        return true;
    // A server that used to take writes has become one that does not, as after a failover.
    if (error.cause() == ErrorCause::readOnly && inTransaction) return true;
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN result = SQLGetConnectAttr(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                               SQL_IS_UINTEGER, nullptr);
    return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

void Link::leaveUnanswered() {
    unanswered_ = state.process;
    unansweredHost_ = host_;
}

std::string Link::takeUnanswered() {
    const std::string process = std::exchange(unanswered_, {});
    return host_ == unansweredHost_ ? process : std::string();
}

void Link::runBeside(const std::string& text) const {
    try {
        OdbcHandle other = unconnected();
        if (!SQL_SUCCEEDED(connectDriver(other.get(), hosts_.at(host_)))) return;
        other.disconnectAtEnd();
        const OdbcHandle statement(SQL_HANDLE_STMT, other);
        executeText(statement.get(), text);
    } catch (const RuntimeError&) {
        // There is no second connection to be had; the driver's own limits remain.
    }
}

}  // namespace catalogador::odbc
