#include "adapters/odbc/odbc_session.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "adapters/odbc/bound_parameters.h"
#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_rows.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

sql::ColumnInfo columnInfo(const OdbcHandle& statement, const sql::Dialect& dialect,
                           SQLUSMALLINT number) {
    DescribedColumn described;
    statement.check(describeColumn(statement.get(), number, described));
    sql::ColumnInfo column;
    column.name = described.name;
    // Drivers give a computed column a name, but no table.
    if (!columnText(statement.get(), number, SQL_DESC_BASE_TABLE_NAME).empty())
        column.baseName = columnText(statement.get(), number, SQL_DESC_BASE_COLUMN_NAME);
    column.typeName = columnText(statement.get(), number, SQL_DESC_TYPE_NAME);
    column.sqlType = described.type;
    column.reportedLength = static_cast<std::size_t>(described.size);
    column.kind = dialect.columnKind(described.type, column.typeName);
    return column;
}

/// A Null has no type that a database could be told, so it is written into the statement's text
/// by the caller; the values here are all bound.
std::vector<sql::Parameter> parametersOf(const std::vector<Variant>& values) {
    std::vector<sql::Parameter> parameters;
    parameters.reserve(values.size());
    for (const Variant& value : values) parameters.push_back(sql::parameterOf(value));
    return parameters;
}

/// The driver of SQLite takes a column's alias for its name. Beside a "*" the position of a column
/// is known only from the nearer end of the list.
void resolveAliases(std::vector<sql::ColumnInfo>& columns,
                    const std::vector<sql::SelectItem>& items) {
    const auto resolve = [](sql::ColumnInfo& column, const sql::SelectItem& item) {
        if (!column.baseName.empty() && !item.aliasedColumn.empty())
            column.baseName = item.aliasedColumn;
    };
    const auto isStar = [](const sql::SelectItem& item) { return item.isStar; };
    const auto star = std::find_if(items.begin(), items.end(), isStar);
    auto column = columns.begin();
    for (auto item = items.begin(); item != star && column != columns.end(); ++item)
        resolve(*column++, *item);
    if (star == items.end()) return;
    const auto lastStar = std::find_if(items.rbegin(), items.rend(), isStar);
    auto fromEnd = columns.rbegin();
    for (auto item = items.rbegin(); item != lastStar && fromEnd != columns.rend(); ++item)
        resolve(*fromEnd++, *item);
}

}  // namespace

OdbcSession::OdbcSession(const std::string& connectionString, const sql::Timeouts& timeouts,
                         const Defences& defences)
    : connectionString_(withTimeouts(connectionString, timeouts)),
      timeouts_(timeouts),
      defences_(defences),
      environment_(SQL_HANDLE_ENV, OdbcHandle()) {
    if (defences_.engine) connectionString_ = withOneCommand(connectionString_);
    hosts_ = eachHost(connectionString_);
    environment_.check(
        SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, attributeValue(SQL_OV_ODBC3), 0));
    connect();
}

OdbcSession::OdbcSession(OdbcHandle borrowed) : connection_(std::move(borrowed)), borrowed_(true) {
    prepareDialect();
}

OdbcSession::~OdbcSession() {
    settle();
}

SQLHANDLE OdbcSession::lend() {
    settle();
    // Whoever uses it beside the session knows nothing of what its transactions may do.
    setAccess(sql::Access::writing);
    lent_ = true;
    return connection_.get();
}

void OdbcSession::freeBeside(OdbcHandle statement) {
    settle();
    if (borrowed_ || lent_) return;
    auto freeIt = [freed = std::move(statement)]() mutable {
        const OdbcHandle ends = std::move(freed);
    };
    try {
        freeing_ = std::async(std::launch::async, std::move(freeIt));
    } catch (const std::system_error&) {
        // There is no thread to be had: the statement has been freed here, with what held it.
    }
}

void OdbcSession::settle() const {
    if (freeing_.valid()) freeing_.wait();
}

bool OdbcSession::meansLost(const RuntimeError& error) const {
    if (dialect_->facts().isFile) return false;
    if (error.cause() == ErrorCause::lost || error.cause() == ErrorCause::outcomeUnknown)
        return true;
    // A server that used to take writes has become one that does not, as after a failover.
    if (error.cause() == ErrorCause::readOnly && transactions_ > 0) return true;
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN result = SQLGetConnectAttr(connection_.get(), SQL_ATTR_CONNECTION_DEAD, &dead,
                                               SQL_IS_UINTEGER, nullptr);
    return SQL_SUCCEEDED(result) && dead == SQL_CD_TRUE;
}

void OdbcSession::reconnectIfLost() {
    settle();
    if (!lost_ || borrowed_ || transactions_ > 0) return;
    useNextHost();
    connect();
    awaitUnanswered();
    lost_ = false;
}

OdbcHandle OdbcSession::execute(const std::string& sql,
                                const std::vector<sql::Parameter>& parameters,
                                std::string* warnings, sql::Access access) {
    std::string text = defences_.reading ? sql::singleStatement(sql, syntax()) : sql;
    if (dialect_->facts().readsComments) text = sql::withoutComments(text, syntax());
    if (const std::string refusal(dialect_->refusal(text, syntax())); !refusal.empty())
        throw RuntimeError(error_number::statementFailed, refusal);
    const auto run = [&] {
        setAccess(access);
        const bool check = carriesData_ && access == sql::Access::reading;
        return check ? executeWithData(text) : executeOnce(text, parameters, warnings);
    };
    reconnectIfLost();
    try {
        return run();
    } catch (const RuntimeError& error) {
        if (!meansLost(error)) throw;
        lost_ = true;
        const bool query = upperCase(leftCharacters(text, 6)) == "SELECT";
        if (!query || transactions_ > 0 || outlived_) throw;
    }
    reconnectIfLost();
    return run();
}

OdbcHandle OdbcSession::executeOnce(const std::string& text,
                                    const std::vector<sql::Parameter>& parameters,
                                    std::string* warnings, Protocol protocol) {
    OdbcHandle statement(SQL_HANDLE_STMT, connection_);
    // Drivers that lack one of these say so, and what they do then is found out later.
    if (protocol == Protocol::any || !dialect_->facts().needsPlainCursor)
        SQLSetStmtAttr(statement.get(), SQL_ATTR_CURSOR_TYPE, attributeValue(SQL_CURSOR_STATIC), 0);
    SQLSetStmtAttr(statement.get(), SQL_ATTR_NOSCAN, attributeValue(SQL_NOSCAN_ON), 0);
    BoundParameters bound(statement, parameters);
    if (protocol == Protocol::oneCommand) {
        // A server may work on a statement while it prepares it already.
        statement.check(watched(statement, [&] { return prepareText(statement.get(), text); }));
        requireRows(statement, text);
    }
    const SQLRETURN result = watched(statement, [&] { return runText(statement, text, protocol); });
    statement.check(result);
    if (warnings != nullptr && result == SQL_SUCCESS_WITH_INFO) *warnings = statement.diagnostics();
    return statement;
}

SQLRETURN OdbcSession::runText(const OdbcHandle& statement, const std::string& text,
                               Protocol protocol) const {
    const auto run = [&] {
        if (protocol == Protocol::oneCommand) return SQLExecute(statement.get());
        return dialect_->facts().preparesEverything ? executePreparedText(statement.get(), text)
                                                    : executeText(statement.get(), text);
    };
    if (!waiting) return run();
    // Drivers read all rows before they come back, so whoever waits would wait for all of them.
    constexpr std::chrono::milliseconds betweenCalls{100};
    std::future<SQLRETURN> result;
    try {
        result = std::async(std::launch::async, run);
    } catch (const std::system_error&) {
        // There is no thread to be had, so the window waits.
        return run();
    }
    // The first call finds the statement running: what can be done in the meantime, is.
    bool wanted = waiting();
    while (result.wait_for(betweenCalls) != std::future_status::ready) {
        wanted = wanted && waiting();
        if (!wanted) cancel(statement);
    }
    return result.get();
}

std::vector<sql::ColumnInfo> OdbcSession::columnsOf(const OdbcHandle& statement,
                                                    const std::string& sql) const {
    SQLSMALLINT count = 0;
    statement.check(SQLNumResultCols(statement.get(), &count));
    std::vector<sql::ColumnInfo> columns;
    for (SQLSMALLINT number = 1; number <= count; ++number)
        columns.push_back(columnInfo(statement, *dialect_, static_cast<SQLUSMALLINT>(number)));
    const bool namesUnknown =
        std::all_of(columns.begin(), columns.end(),
                    [](const sql::ColumnInfo& c) { return c.baseName.empty(); });
    if (namesUnknown && !dialect_->facts().reportsBaseNames)
        for (sql::ColumnInfo& column : columns) column.baseName = column.name;
    if (dialect_->facts().hidesNamesBehindAliases)
        resolveAliases(columns, sql::selectItems(sql, syntax()));
    return columns;
}

std::int64_t OdbcSession::touchedRows(const OdbcHandle& statement) {
    SQLLEN count = 0;
    SQLRowCount(statement.get(), &count);
    // Some drivers answer -1 for a statement that has no rows to count.
    return std::max<SQLLEN>(count, 0);
}

std::unique_ptr<sql::SqlRows> OdbcSession::open(const std::string& sql) {
    return std::make_unique<OdbcRows>(*this, execute(sql), sql);
}

std::vector<std::vector<Variant>> OdbcSession::query(const std::string& sql,
                                                     const std::vector<Variant>& values) {
    return query({sql, parametersOf(values)});
}

std::vector<std::vector<Variant>> OdbcSession::query(const sql::ParameterizedStatement& statement) {
    return rowsOf(execute(statement.text, statement.parameters), statement.text);
}

std::vector<std::vector<Variant>> OdbcSession::rowsOf(const OdbcHandle& statement,
                                                      const std::string& sql) const {
    std::vector<std::vector<Variant>> rows;
    SQLLEN count = 0;
    SQLRowCount(statement.get(), &count);
    // A write that returns rows has none to read, and no columns, when it found nothing to write.
    if (dialect_->facts().countsRowsOfQueries && count == 0) return rows;
    const auto columns = columnsOf(statement, sql);
    if (columns.empty()) return rows;
    const auto reader = makeRowReader(statement, *dialect_, columns);
    while (reader->next()) {
        auto& row = rows.emplace_back(columns.size());
        for (std::size_t column = 0; column < columns.size(); ++column)
            row[column] = reader->value(column, columns[column].kind);
    }
    return rows;
}

std::int64_t OdbcSession::run(const std::string& sql, const std::vector<Variant>& values) {
    return touchedRows(execute(sql, parametersOf(values), nullptr, sql::Access::writing));
}

std::int64_t OdbcSession::write(const sql::ParameterizedStatement& statement) {
    std::string warnings;
    const OdbcHandle handle =
        execute(statement.text, statement.parameters, &warnings, sql::Access::writing);
    if (dialect_->facts().warnsOfPartialValues && !warnings.empty())
        throw RuntimeError(error_number::statementFailed, warnings);
    return touchedRows(handle);
}

void OdbcSession::begin() {
    reconnectIfLost();
    if (transactions_ > 0) {
        run("SAVEPOINT " + savepoint());
    } else if (!dialect_->facts().beginWriting.empty()) {
        beginByStatement();
    } else {
        leaveAutocommit(sql::Access::writing);
    }
    ++transactions_;
}

void OdbcSession::beginByStatement() {
    turns_.beforeTurn();
    run(std::string(dialect_->facts().beginWriting));
    turns_.turnBegan();
}

void OdbcSession::commit() {
    if (transactions_ > 1) {
        --transactions_;
        run("RELEASE SAVEPOINT " + savepoint());
        return;
    }
    endTransaction(SQL_COMMIT);
}

void OdbcSession::rollback() {
    if (transactions_ > 1) {
        --transactions_;
        run("ROLLBACK TO SAVEPOINT " + savepoint());
        return;
    }
    endTransaction(SQL_ROLLBACK);
}

void OdbcSession::endTransaction(SQLSMALLINT how) {
    settle();
    if (transactions_ == 0)
        throw RuntimeError(error_number::invalidProcedureCall, "No transaction was begun");
    if (!dialect_->facts().beginWriting.empty()) {
        run(how == SQL_COMMIT ? "COMMIT" : "ROLLBACK");
        transactions_ = 0;
        endReading();
        turns_.turnEnded();
        return;
    }
    // Whatever comes of it, the transaction is over: a server that is gone has rolled it back.
    transactions_ = 0;
    // Not every driver tells that there is nothing left to commit.
    if (lost_ && how == SQL_COMMIT)
        throw RuntimeError(error_number::statementFailed,
                           "08S01: The connection was lost; nothing of the transaction is stored",
                           ErrorCause::lost);
    try {
        connection_.check(SQLEndTran(SQL_HANDLE_DBC, connection_.get(), how));
    } catch (const RuntimeError& error) {
        endFailed(how, error);
    }
    returnToAutocommit();
}

void OdbcSession::leaveAutocommit(sql::Access access) {
    try {
        setAccess(access);
        return setAutocommit(false);
    } catch (const RuntimeError& error) {
        if (!meansLost(error)) throw;
        lost_ = true;
    }
    // Nothing was done in the transaction yet.
    reconnectIfLost();
    setAccess(access);
    setAutocommit(false);
}

void OdbcSession::setAutocommit(bool on) {
    connection_.check(SQLSetConnectAttr(connection_.get(), SQL_ATTR_AUTOCOMMIT,
                                        attributeValue(on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF),
                                        0));
}

std::string OdbcSession::savepoint() const {
    return "catalogador_" + decimalText(transactions_);
}

}  // namespace catalogador::odbc
