// What keeps a session to what it is for: reading, one command a statement, and its limits.
#include <utility>

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/sql/data_check.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

/// How much later than the server itself the program stops a statement, so that the server's own
/// word is heard; and how long a cancelled statement has.
constexpr std::chrono::milliseconds grace{1'000};
constexpr std::chrono::milliseconds patience{3'000};

}  // namespace

OdbcSession::Announced::Announced(OdbcSession& session, const SqlText& sql) : session_(session) {
    if (session.defences_.reading) sql::requireDataStaysData(sql, session.syntax());
    session.carriesData_ = !sql.data().empty();
    session.reaching_ = {};
    for (const auto& piece : sql.data()) {
        const auto text = std::string_view(sql.text()).substr(piece.start, piece.length);
        for (const std::string_view function : session.dialect_->facts().reachingFunctions)
            if (session.reaching_.empty() && containsText(text, function, Compare::text))
                session.reaching_ = function;
    }
}

/// The statements go by the same way as those of screens, but are neither read nor guarded.
class OdbcSession::Commands : public sql::SessionCommands {
  public:
    explicit Commands(OdbcSession& session) : session_(session) {}

    std::vector<std::vector<Variant>> ask(const std::string& query) override {
        return session_.rowsOf(session_.executeOnce(query, {}, nullptr), query);
    }
    void tell(const std::string& statement) override {
        session_.executeOnce(statement, {}, nullptr);
    }

  private:
    OdbcSession& session_;
};

sql::SessionSetUp OdbcSession::setUp() const {
    return {.timeouts = timeouts_,
            .borrowed = borrowed_,
            .oneCommand = defences_.engine,
            .saysLockWait = hasKey(connectionString_, "Timeout"),
            .severalHosts = hosts_.size() > 1};
}

void OdbcSession::prepareDialect() {
    dialect_ = &sql::dialectOfProduct(productName(connection_.get()));
    state_ = {.syntax = dialect_->facts().syntax};
    Commands commands(*this);
    state_ = dialect_->setUp(commands, setUp());
}

void OdbcSession::joinCluster() {
    Commands commands(*this);
    dialect_->joinCluster(commands, setUp());
}

void OdbcSession::setAccess(sql::Access access) {
    if (!guarded() || transactions_ > 0 || access_ == access) return;
    const std::string statement = dialect_->accessStatement(access);
    if (statement.empty()) return;
    executeOnce(statement, {}, nullptr);
    access_ = access;
}

OdbcHandle OdbcSession::executeWithData(const std::string& text) {
    if (!guarded()) return executeOnce(text, {}, nullptr);
    if (!reaching_.empty())
        throw RuntimeError(
            error_number::statementFailed,
            "A text that names " + std::string(reaching_) + " cannot be used in a check");
    const std::string begin = dialect_->beginCheck(state_.limitsChecks);
    if (!begin.empty() && transactions_ == 0) return executeInReading(begin, text);
    Commands commands(*this);
    if (const auto now = dialect_->currentState(commands)) {
        const std::string before = std::exchange(state_, *now).mode;
        if (state_.mode != before)
            throw RuntimeError(error_number::statementFailed,
                               "The server reads statements in another way than before");
    }
    return executeOnce(text, {}, nullptr, Protocol::oneCommand);
}

OdbcHandle OdbcSession::executeInReading(const std::string& begin, const std::string& text) {
    command(begin);
    try {
        // A driver that sees two commands sends them both; it looks for nothing but this.
        const std::string oneCommand(dialect_->facts().oneCommandQuery);
        if (!oneCommand.empty() && text.find(';') != std::string::npos)
            executeOnce(oneCommand, {sql::parameterOf(text)}, nullptr);
        OdbcHandle statement = executeOnce(text, {}, nullptr, Protocol::oneCommand);
        command("ROLLBACK");
        return statement;
    } catch (const RuntimeError&) {
        try {
            command("ROLLBACK");
        } catch (const RuntimeError&) {
            // The connection is gone, and the transaction with it.
        }
        throw;
    }
}

void OdbcSession::requireRows(const OdbcHandle& statement, const std::string& text) const {
    if (!dialect_->mustHaveColumns(text, syntax())) return;
    SQLSMALLINT columns = 0;
    statement.check(SQLNumResultCols(statement.get(), &columns));
    if (columns == 0)
        throw RuntimeError(error_number::statementFailed, "The statement returns no rows");
}

void OdbcSession::command(const std::string& text) {
    const OdbcHandle statement(SQL_HANDLE_STMT, connection_);
    statement.check(executeText(statement.get(), text));
    while (SQL_SUCCEEDED(SQLMoreResults(statement.get()))) {
    }
}

SQLRETURN OdbcSession::watched(const OdbcHandle& statement, const std::function<SQLRETURN()>& run) {
    using Outcome = StatementWatch::Outcome;
    outlived_ = false;
    if (borrowed_ || timeouts_.statement.count() <= 0) return run();
    watch_.begin(timeouts_.statement + grace, patience,
                 {[&] { cancel(statement); }, [this] { endSession(); }});
    const SQLRETURN result = run();
    const Outcome outcome = watch_.end();
    if (outcome == Outcome::inTime) return result;
    outlived_ = true;
    lost_ = lost_ || outcome == Outcome::dropped;
    throw RuntimeError(error_number::statementFailed,
                       "HYT00: The statement was stopped because it took longer than " +
                           decimalText(sql::wholeSeconds(timeouts_.statement).count()) + " s");
}

void OdbcSession::cancel(const OdbcHandle& statement) const {
    const bool known = !borrowed_ && !state_.process.empty();
    const std::string command = known ? dialect_->cancelStatement(state_.process) : "";
    if (command.empty())
        SQLCancel(statement.get());
    else
        runBeside(command);
}

void OdbcSession::endSession() const {
    if (state_.process.empty()) return;
    const std::string statement = dialect_->endSessionStatement(state_.process);
    if (!statement.empty()) runBeside(statement);
}

void OdbcSession::runBeside(const std::string& text) const {
    try {
        OdbcHandle other(SQL_HANDLE_DBC, environment_);
        SQLSetConnectAttr(
            other.get(), SQL_ATTR_LOGIN_TIMEOUT,
            attributeValue(static_cast<std::uintptr_t>(sql::wholeSeconds(timeouts_.login).count())),
            0);
        if (!SQL_SUCCEEDED(connectDriver(other.get(), hosts_.at(host_)))) return;
        other.disconnectAtEnd();
        const OdbcHandle statement(SQL_HANDLE_STMT, other);
        executeText(statement.get(), text);
    } catch (const RuntimeError&) {
        // There is no second connection to be had; the driver's own limits remain.
    }
}

}  // namespace catalogador::odbc
