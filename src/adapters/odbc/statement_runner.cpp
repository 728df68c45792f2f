#include "adapters/odbc/statement_runner.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "adapters/odbc/bound_parameters.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/sql/waiting.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

/// How much later than the server itself the program stops a statement, so that the server's own
/// word is heard; and how long a cancelled statement has.
constexpr std::chrono::milliseconds grace{1'000};
constexpr std::chrono::milliseconds patience{3'000};

}  // namespace

Statement::~Statement() {
    if (handle_.get() != nullptr) runner_->settle();
}

SQLHANDLE Statement::get() const {
    runner_->settle();
    return handle_.get();
}

std::int64_t Statement::touchedRows() const {
    SQLLEN count = 0;
    SQLRowCount(get(), &count);
    // Some drivers answer -1 for a statement that has no rows to count.
    return std::max<SQLLEN>(count, 0);
}

void Statement::freeBeside() {
    runner_->freeBeside(std::move(handle_));
}

StatementRunner::~StatementRunner() {
    settle();
}

void StatementRunner::settle() const {
    if (freeing_.valid()) freeing_.wait();
}

const OdbcHandle& StatementRunner::connection() const {
    settle();
    return link_.connection();
}

void StatementRunner::freeBeside(OdbcHandle statement) {
    settle();
    if (link_.isShared()) return;
    auto freeIt = [freed = std::move(statement)]() mutable {
        const OdbcHandle ends = std::move(freed);
    };
    try {
        freeing_ = std::async(std::launch::async, std::move(freeIt));
    } catch (const std::system_error&) {
        // There is no thread to be had: the statement has been freed here, with what held it.
    }
}

Statement StatementRunner::run(const std::string& text,
                               const std::vector<sql::Parameter>& parameters, std::string* warnings,
                               Protocol protocol) {
    OdbcHandle statement(SQL_HANDLE_STMT, connection());
    // Drivers that lack one of these say so, and what they do then is found out later.
    if (protocol == Protocol::any || !dialect().facts().needsPlainCursor)
        SQLSetStmtAttr(statement.get(), SQL_ATTR_CURSOR_TYPE, attributeValue(SQL_CURSOR_STATIC), 0);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_NOSCAN, attributeValue(SQL_NOSCAN_ON), 0);
    {
        const BoundParameters bound(statement, parameters);
        if (protocol == Protocol::oneCommand) {
            // A server may work on a statement while it prepares it already.
            statement.check(watched(statement, [&] { return prepareText(statement.get(), text); }));
            requireColumns(statement, text);
        }
        const SQLRETURN result =
            watched(statement, [&] { return runText(statement, text, protocol); });
        statement.check(result);
        if (warnings != nullptr && result == SQL_SUCCESS_WITH_INFO)
            *warnings = statement.diagnostics();
    }
    return {*this, std::move(statement)};
}

void StatementRunner::command(const std::string& text) {
    const OdbcHandle statement(SQL_HANDLE_STMT, connection());
    statement.check(executeText(statement.get(), text));
    while (SQL_SUCCEEDED(SQLMoreResults(statement.get()))) {
    }
}

void StatementRunner::prepare(const std::string& text) {
    const OdbcHandle statement(SQL_HANDLE_STMT, connection());
    statement.check(prepareText(statement.get(), text));
}

void StatementRunner::requireColumns(const OdbcHandle& statement, const std::string& text) const {
    if (!dialect().mustHaveColumns(text, link_.state.syntax)) return;
    SQLSMALLINT columns = 0;
    statement.check(SQLNumResultCols(statement.get(), &columns));
    if (columns == 0)
        throw RuntimeError(error_number::statementFailed, "The statement returns no rows");
}

SQLRETURN StatementRunner::runText(const OdbcHandle& statement, const std::string& text,
                                   Protocol protocol) const {
    const auto run = [&]() -> SQLRETURN {
        if (protocol == Protocol::oneCommand) return SQLExecute(statement.get());
        return dialect().facts().preparesEverything ? executePreparedText(statement.get(), text)
                                                    : executeText(statement.get(), text);
    };
    // Drivers read all rows before they come back, so whoever waits would wait for all of them.
    return sql::workBeside(waiting, run, [&] { cancel(statement); });
}

SQLRETURN StatementRunner::watched(const OdbcHandle& statement,
                                   const std::function<SQLRETURN()>& run) {
    using Outcome = StatementWatch::Outcome;
    const auto limit = link_.timeouts().statement;
    stopped_ = false;
    if (link_.isBorrowed() || limit.count() <= 0) return run();
    watch_.begin(limit + grace, patience, {[&] { cancel(statement); }, [this] { endSession(); }});
    const SQLRETURN result = run();
    const Outcome outcome = watch_.end();
    if (outcome == Outcome::inTime) return result;
    stopped_ = true;
    if (outcome == Outcome::dropped) link_.setLost();
    throw RuntimeError(error_number::statementFailed,
                       "HYT00: The statement was stopped because it took longer than " +
                           decimalText(sql::wholeSeconds(limit).count()) + " s");
}

void StatementRunner::cancel(const OdbcHandle& statement) const {
    const std::string& process = link_.state.process;
    const bool known = !link_.isBorrowed() && !process.empty();
    const std::string command = known ? dialect().cancelStatement(process) : std::string();
    if (command.empty())
        SQLCancel(statement.get());
    else
        link_.runBeside(command);
}

void StatementRunner::endSession() const {
    if (link_.state.process.empty()) return;
    const std::string statement = dialect().endSessionStatement(link_.state.process);
    if (!statement.empty()) link_.runBeside(statement);
}

}  // namespace catalogador::odbc
