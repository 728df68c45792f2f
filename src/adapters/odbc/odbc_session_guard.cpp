// What keeps a session to what it is for: reading, one command a statement, and its limits.
#include <algorithm>

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

/// The words of the statement, comments left out.
std::vector<std::string_view> wordsOf(std::string_view text, const sql::SqlSyntax& syntax) {
    std::vector<std::string_view> words;
    for (const sql::SqlToken& token : sql::tokensOf(text, syntax))
        if (token.kind == sql::TokenKind::word) words.push_back(token.text);
    return words;
}

bool callsProcedure(std::string_view text, const sql::SqlSyntax& syntax) {
    const auto words = wordsOf(text, syntax);
    return !words.empty() && (equalText(words[0], "call") || equalText(words[0], "execute"));
}

}  // namespace

OdbcSession::Announced::Announced(OdbcSession& session, const SqlText& sql) : session_(session) {
    if (session.defences_.reading) sql::requireDataStaysData(sql, session.syntax_);
    session.carriesData_ = !sql.data().empty();
    session.reaching_ = {};
    for (const auto& piece : sql.data()) {
        const auto text = std::string_view(sql.text()).substr(piece.start, piece.length);
        if (session.reaching_.empty()) session.reaching_ = reachingFunction(session.dialect_, text);
    }
}

void OdbcSession::preparePostgresql() {
    if (borrowed_) {
        const auto rows = rowsOf(executeOnce("SHOW standard_conforming_strings", {}, nullptr), "");
        syntax_.backslashEscapes = toTextOrEmpty(rows.at(0).at(0), Regional{}) != "on";
        return;
    }
    const std::string settings = postgresqlSettings(timeouts_);
    const auto row = rowsOf(executeOnce(settings, {}, nullptr), "").at(0);
    process_ = toTextOrEmpty(row.at(0), Regional{});
    asReader_ = toTextOrEmpty(row.at(1), Regional{}) == "1";
}

void OdbcSession::prepareMariadb() {
    if (!borrowed_) executeOnce(mariadbSettings(timeouts_), {}, nullptr);
    readMariadbState();
    if (borrowed_ || !defences_.engine) return;
    try {
        executeOnce("DO 0; DO 0", {}, nullptr);
    } catch (const RuntimeError&) {
        return;
    }
    throw RuntimeError(
        error_number::statementFailed,
        "The driver takes several commands in one statement (OPTION 67108864), which "
        "is not safe");
}

void OdbcSession::readMariadbState() {
    const auto rows = rowsOf(executeOnce(mariadbState, {}, nullptr), "");
    const auto text = [&](std::size_t column) {
        return toTextOrEmpty(rows.at(0).at(column), Regional{});
    };
    process_ = text(0);
    mariadbState_ = text(1) + " " + text(2);
    syntax_ = mariadbSyntax(text(1), text(2), text(3));
}

void OdbcSession::requireReadable(const std::string& text) const {
    if (dialect_ != Dialect::postgresql || !containsText(text, "copy", Compare::text)) return;
    const auto words = wordsOf(text, syntax_);
    if (words.empty() || !equalText(words[0], "copy")) return;
    if (std::any_of(words.begin(), words.end(), [](std::string_view word) {
            return equalText(word, "stdout") || equalText(word, "stdin");
        }))
        throw RuntimeError(error_number::statementFailed,
                           "COPY between the server and the program is not possible");
}

void OdbcSession::setAccess(Access access) {
    if (!guarded() || transactions_ > 0 || access_ == access) return;
    const std::string statement = accessStatement(dialect_, access);
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
    if (dialect_ == Dialect::postgresql && transactions_ == 0) return executeInReading(text);
    if (dialect_ == Dialect::mariadb) {
        const std::string before = mariadbState_;
        readMariadbState();
        if (mariadbState_ != before)
            throw RuntimeError(error_number::statementFailed,
                               "The server reads statements in another way than before");
    }
    return executeOnce(text, {}, nullptr, Protocol::oneCommand);
}

OdbcHandle OdbcSession::executeInReading(const std::string& text) {
    command(postgresqlCheck(asReader_));
    try {
        // A driver that sees two commands sends them both; it looks for nothing but this.
        if (text.find(';') != std::string::npos)
            executeOnce(oneCommandQuery, {sql::parameterOf(text)}, nullptr);
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
    // SELECT … INTO OUTFILE is one without.
    if (dialect_ != Dialect::mariadb || callsProcedure(text, syntax_)) return;
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
    // The driver of MariaDB would do the same on a connection that waits for the server without
    // end.
    if (dialect_ == Dialect::mariadb && !borrowed_ && !process_.empty())
        runBeside("KILL QUERY " + process_);
    else
        SQLCancel(statement.get());
}

void OdbcSession::endSession() const {
    const std::string statement = endSessionStatement(dialect_, process_);
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
