#include "adapters/odbc/odbc_session.h"

#include <chrono>
#include <thread>
#include <utility>

#include "adapters/odbc/odbc_rows.h"
#include "adapters/odbc/result.h"
#include "adapters/sql/data_check.h"
#include "adapters/sql/statement_effect.h"
#include "adapters/sql/statement_text.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

/// A Null has no type that a database could be told, so it is written into the statement's text
/// by the caller; the values here are all bound.
std::vector<sql::Parameter> parametersOf(const std::vector<Variant>& values) {
    std::vector<sql::Parameter> parameters;
    parameters.reserve(values.size());
    for (const Variant& value : values) parameters.push_back(sql::parameterOf(value));
    return parameters;
}

}  // namespace

/// The statements are the program's own, and are not read before the database gets them.
class OdbcSession::Commands : public sql::SessionCommands {
  public:
    explicit Commands(OdbcSession& session) : session_(session) {}

    std::vector<std::vector<Variant>> ask(const std::string& query) override {
        return rowsOf(session_.runner_.run(query), session_.dialect(), session_.syntax(), query);
    }
    void tell(const std::string& statement) override { session_.runner_.run(statement); }

  private:
    OdbcSession& session_;
};

OdbcSession::OdbcSession(const std::string& connectionString, const sql::Timeouts& timeouts,
                         const Defences& defences)
    : link_(connectionString, timeouts, defences) {
    link_.connect([this] { setUp(); });
}

OdbcSession::OdbcSession(OdbcHandle borrowed) : link_(std::move(borrowed)) {
    Commands commands(*this);
    link_.state = dialect().setUp(commands, link_.setUp());
}

void OdbcSession::setUp() {
    transactions_.connectionMade();
    Commands commands(*this);
    link_.state = dialect().setUp(commands, link_.setUp());
    dialect().joinCluster(commands, link_.setUp());
}

SQLHANDLE OdbcSession::lend() {
    // Whoever uses it too knows nothing of what its transactions may do.
    transactions_.allow(sql::Access::writing);
    link_.lend();
    return runner_.connection().get();
}

void OdbcSession::makeReady() {
    if (!link_.isLost() || link_.isBorrowed() || inTransaction()) return;
    runner_.settle();
    link_.connectAgain([this] { setUp(); });
    awaitUnanswered();
    link_.setFound();
}

void OdbcSession::awaitUnanswered() {
    using namespace std::chrono_literals;
    constexpr auto betweenTwoLooks = 50ms;
    const std::string process = link_.takeUnanswered();
    if (process.empty()) return;
    const std::string sql = std::string(dialect().facts().busySessionQuery) + process;
    const auto end = std::chrono::steady_clock::now() + sql::endless(link_.timeouts().lock);
    Commands commands(*this);
    while (!commands.ask(sql).empty()) {
        if (std::chrono::steady_clock::now() > end)
            throw RuntimeError(error_number::statementFailed,
                               "The server is still at work on the commit that it has not answered",
                               ErrorCause::outcomeUnknown);
        std::this_thread::sleep_for(betweenTwoLooks);
    }
}

Statement OdbcSession::execute(const std::string& sql,
                               const std::vector<sql::Parameter>& parameters, std::string* warnings,
                               sql::Access access) {
    std::string text = link_.defences().reading ? sql::singleStatement(sql, syntax()) : sql;
    if (dialect().facts().readsComments) text = sql::withoutComments(text, syntax());
    if (const std::string refusal(dialect().refusal(text, syntax())); !refusal.empty())
        throw RuntimeError(error_number::statementFailed, refusal);
    const auto run = [&] {
        transactions_.allow(access);
        const bool check = carriesData_ && access == sql::Access::reading;
        return check ? executeWithData(text) : runner_.run(text, parameters, warnings);
    };
    makeReady();
    try {
        return run();
    } catch (const RuntimeError& error) {
        if (!link_.isLostBy(error, inTransaction())) throw;
        link_.setLost();
        const bool query = upperCase(leftCharacters(text, 6)) == "SELECT";
        if (!query || inTransaction() || runner_.wasStopped()) throw;
    }
    makeReady();
    return run();
}

std::unique_ptr<sql::SqlRows> OdbcSession::open(const std::string& sql) {
    Statement statement = execute(sql);
    auto columns = columnsOf(statement, dialect(), syntax(), sql);
    return std::make_unique<OdbcRows>(std::move(statement), dialect(), std::move(columns));
}

std::vector<std::vector<Variant>> OdbcSession::query(const std::string& sql,
                                                     const std::vector<Variant>& values) {
    return query({sql, parametersOf(values)});
}

std::vector<std::vector<Variant>> OdbcSession::query(const sql::ParameterizedStatement& statement) {
    const Statement executed = execute(statement.text, statement.parameters);
    return rowsOf(executed, dialect(), syntax(), statement.text);
}

std::int64_t OdbcSession::run(const std::string& sql, const std::vector<Variant>& values) {
    return execute(sql, parametersOf(values), nullptr, sql::Access::writing).touchedRows();
}

std::int64_t OdbcSession::write(const sql::ParameterizedStatement& statement) {
    std::string warnings;
    const Statement executed =
        execute(statement.text, statement.parameters, &warnings, sql::Access::writing);
    if (dialect().facts().warnsOfPartialValues && !warnings.empty())
        throw RuntimeError(error_number::statementFailed, warnings);
    return executed.touchedRows();
}

StatementPlan OdbcSession::prepare(const std::string& sql) {
    const std::string text = sql::singleStatement(sql, syntax());
    makeReady();
    if (sql::effectOf(text, syntax()) == sql::StatementEffect::other)
        return sql::planOf(text, syntax());
    const sql::Preparation preparation = dialect().preparation(text, syntax());
    if (preparation.needsWriting) transactions_.allow(sql::Access::writing);
    for (const std::string& statement : preparation.statements) runner_.run(statement);
    if (preparation.statements.empty()) runner_.prepare(text);
    return sql::planOf(text, syntax());
}

void OdbcSession::announce(const SqlText& sql) {
    if (link_.defences().reading) sql::requireDataStaysData(sql, syntax());
    carriesData_ = !sql.data().empty();
    reaching_ = {};
    for (const auto& piece : sql.data()) {
        const auto text = std::string_view(sql.text()).substr(piece.start, piece.length);
        for (const std::string_view function : dialect().facts().reachingFunctions)
            if (reaching_.empty() && containsText(text, function, Compare::text))
                reaching_ = function;
    }
}

Statement OdbcSession::executeWithData(const std::string& text) {
    if (!link_.isGuarded()) return runner_.run(text);
    if (!reaching_.empty())
        throw RuntimeError(
            error_number::statementFailed,
            "A text that names " + std::string(reaching_) + " cannot be used in a check");
    const std::string begin = dialect().beginCheck(link_.state.limitsChecks);
    if (!begin.empty() && !inTransaction()) return executeInReading(begin, text);
    Commands commands(*this);
    if (const auto now = dialect().currentState(commands)) {
        const std::string before = std::exchange(link_.state, *now).mode;
        if (link_.state.mode != before)
            throw RuntimeError(error_number::statementFailed,
                               "The server reads statements in another way than before");
    }
    return runner_.run(text, {}, nullptr, StatementRunner::Protocol::oneCommand);
}

Statement OdbcSession::executeInReading(const std::string& begin, const std::string& text) {
    runner_.command(begin);
    try {
        // A driver that sees two commands sends them both; it looks for nothing but this.
        const std::string oneCommand(dialect().facts().oneCommandQuery);
        if (!oneCommand.empty() && text.find(';') != std::string::npos)
            runner_.run(oneCommand, {sql::parameterOf(text)});
        Statement statement = runner_.run(text, {}, nullptr, StatementRunner::Protocol::oneCommand);
        runner_.command("ROLLBACK");
        return statement;
    } catch (const RuntimeError&) {
        try {
            runner_.command("ROLLBACK");
        } catch (const RuntimeError&) {
            // The connection is gone, and the transaction with it.
        }
        throw;
    }
}

}  // namespace catalogador::odbc
