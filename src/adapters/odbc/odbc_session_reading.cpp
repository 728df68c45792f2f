// Statements that are read and not run, and transactions in which the database refuses to write.
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/sql/statement_effect.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

std::string quotedText(const std::string& text, const sql::SqlSyntax& syntax) {
    const std::string escaped =
        syntax.backslashEscapes ? replaceText(text, "\\", "\\\\", Compare::binary) : text;
    return "'" + replaceText(escaped, "'", "''", Compare::binary) + "'";
}

}  // namespace

StatementPlan OdbcSession::prepare(const std::string& sql) {
    const std::string text = sql::singleStatement(sql, syntax_);
    reconnectIfLost();
    if (sql::effectOf(text, syntax_) != sql::StatementEffect::other) readWithoutRunning(text);
    return sql::planOf(text, syntax_);
}

void OdbcSession::readWithoutRunning(const std::string& text) {
    if (dialect_ == Dialect::postgresql) {
        // Drivers may run a query that they are asked to prepare.
        executeOnce("PREPARE catalogador_prepared AS " + text, {}, nullptr);
        executeOnce("DEALLOCATE catalogador_prepared", {}, nullptr);
        return;
    }
    if (dialect_ == Dialect::sqlite) {
        executeOnce("EXPLAIN " + sql::withoutComments(text, syntax_), {}, nullptr);
        return;
    }
    if (dialect_ == Dialect::mariadb) {
        // The driver hands a write over no sooner than it is to be run, and a session that may only
        // read refuses to prepare one.
        setAccess(Access::writing);
        executeOnce("PREPARE catalogador_prepared FROM " + quotedText(text, syntax_), {}, nullptr);
        executeOnce("DEALLOCATE PREPARE catalogador_prepared", {}, nullptr);
        return;
    }
    const OdbcHandle statement(SQL_HANDLE_STMT, connection_);
    statement.check(prepareText(statement.get(), text));
}

void OdbcSession::beginReading() {
    reconnectIfLost();
    if (transactions_ > 0)
        throw RuntimeError(error_number::invalidProcedureCall, "A transaction was begun before");
    if (dialect_ == Dialect::sqlite) {
        setAccess(Access::reading);
        executeOnce("PRAGMA query_only = 1", {}, nullptr);
        reading_ = true;
        executeOnce("BEGIN", {}, nullptr);
    } else {
        leaveAutocommit(Access::reading);
        // Sessions that the program does not set up have been told nothing else.
        executeOnce("SET TRANSACTION READ ONLY", {}, nullptr);
    }
    ++transactions_;
}

void OdbcSession::endReading() {
    if (!reading_) return;
    reading_ = false;
    if (!guarded()) executeOnce("PRAGMA query_only = 0", {}, nullptr);
}

}  // namespace catalogador::odbc
