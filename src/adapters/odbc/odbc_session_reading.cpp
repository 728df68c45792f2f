// Statements that are read and not run, and transactions in which the database refuses to write.
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/sql/statement_effect.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

StatementPlan OdbcSession::prepare(const std::string& sql) {
    const std::string text = sql::singleStatement(sql, syntax());
    reconnectIfLost();
    if (sql::effectOf(text, syntax()) != sql::StatementEffect::other) readWithoutRunning(text);
    return sql::planOf(text, syntax());
}

void OdbcSession::readWithoutRunning(const std::string& text) {
    const sql::Preparation preparation = dialect_->preparation(text, syntax());
    if (preparation.needsWriting) setAccess(sql::Access::writing);
    for (const std::string& statement : preparation.statements) executeOnce(statement, {}, nullptr);
    if (!preparation.statements.empty()) return;
    const OdbcHandle statement(SQL_HANDLE_STMT, connection_);
    statement.check(prepareText(statement.get(), text));
}

void OdbcSession::beginReading() {
    reconnectIfLost();
    if (transactions_ > 0)
        throw RuntimeError(error_number::invalidProcedureCall, "A transaction was begun before");
    if (const std::string begin(dialect_->facts().beginReading); !begin.empty()) {
        setAccess(sql::Access::reading);
        executeOnce(dialect_->accessStatement(sql::Access::reading), {}, nullptr);
        reading_ = true;
        executeOnce(begin, {}, nullptr);
    } else {
        leaveAutocommit(sql::Access::reading);
        // Sessions that the program does not set up have been told nothing else.
        executeOnce("SET TRANSACTION READ ONLY", {}, nullptr);
    }
    ++transactions_;
}

void OdbcSession::endReading() {
    if (!reading_) return;
    reading_ = false;
    if (!guarded()) executeOnce(dialect_->accessStatement(sql::Access::writing), {}, nullptr);
}

}  // namespace catalogador::odbc
