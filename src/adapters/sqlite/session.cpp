#include "adapters/sqlite/session.h"

#include <utility>

#include "adapters/sql/data_check.h"
#include "adapters/sql/statement_effect.h"
#include "adapters/sql/waiting.h"
#include "adapters/sqlite/packed_rows.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sqlite {

namespace {

/// The longest pause of Database between two looks for a lock, and a little more.
constexpr std::chrono::milliseconds betweenTwoLooks{6};

/// Texts are bound as they are: they must outlive the statement's run.
void bindValues(Database& database, const Statement& statement,
                const std::vector<sql::Parameter>& parameters) {
    sqlite3_stmt* const handle = statement.get();
    if (std::cmp_not_equal(sqlite3_bind_parameter_count(handle), parameters.size()))
        throw RuntimeError(error_number::statementFailed,
                           "HY000: [SQLite]the statement has not as many values as places (1)");
    int number = 0;
    for (const sql::Parameter& parameter : parameters) {
        ++number;
        int result = SQLITE_OK;
        if (const auto* text = std::get_if<std::string>(&parameter.value)) {
            if (parameter.sqlType == SQL_VARBINARY) {
                database.check(
                    sqlite3_bind_blob64(handle, number, text->data(), text->size(), SQLITE_STATIC));
                continue;
            }
            if (text->find('\0') != std::string::npos)
                throw RuntimeError(error_number::statementFailed,
                                   "HY000: [SQLite]a text contains a NUL (1)");
            result = sqlite3_bind_text64(handle, number, text->data(), text->size(), SQLITE_STATIC,
                                         SQLITE_UTF8);
        } else if (const auto* flag = std::get_if<bool>(&parameter.value)) {
            result = sqlite3_bind_int(handle, number, *flag ? 1 : 0);
        } else if (const auto* real = std::get_if<double>(&parameter.value)) {
            result = sqlite3_bind_double(handle, number, *real);
        } else {
            result = sqlite3_bind_int64(handle, number, std::get<std::int64_t>(parameter.value));
        }
        database.check(result);
    }
}

std::vector<sql::Parameter> parametersOf(const std::vector<Variant>& values) {
    std::vector<sql::Parameter> parameters;
    parameters.reserve(values.size());
    for (const Variant& value : values) parameters.push_back(sql::parameterOf(value));
    return parameters;
}

/// The last part of a table's name, without quotes.
std::string plainName(const std::string& table, const sql::SqlSyntax& syntax) {
    const auto tokens = sql::tokensOf(table, syntax);
    return tokens.empty() ? std::string() : sql::unquotedName(tokens.back());
}

}  // namespace

Session::Session(const std::string& file, Opening opening, const sql::Timeouts& timeouts)
    : guarded_(opening == Opening::guarded),
      database_(file, opening == Opening::created, guarded_, timeouts),
      syntax_(sql::sqliteDialect().facts().syntax),
      turns_(betweenTwoLooks) {
    // Any file can be opened; only a statement tells whether it is a database.
    control("Select Count(*) From sqlite_master");
}

Session::~Session() {
    if (transactions_ == 0) return;
    try {
        control("ROLLBACK");
    } catch (const RuntimeError&) {
        // What is not committed is not stored.
    }
}

void Session::announce(const SqlText& sql) {
    sql::requireDataStaysData(sql, syntax_);
}

std::unique_ptr<sql::SqlRows> Session::rowsOf(const sql::ParameterizedStatement& given,
                                              Access access) {
    auto rows = std::make_unique<sql::SqlRows>();
    const auto table = sql::writableTable(given.text, syntax_);
    database_.beginStatement();
    const auto read = [&] {
        Statement statement(database_, given.text, access);
        bindValues(database_, statement, given.parameters);
        bool more = statement.step();
        rows->columns =
            columnsOf(statement.get(), table ? plainName(*table, syntax_) : std::string(), more);
        if (rows->columns.empty()) return true;
        auto packed = std::make_unique<PackedRows>(rows->columns);
        for (; more; more = statement.step()) packed->add(statement.get());
        rows->reader = std::move(packed);
        return true;
    };
    sql::workBeside(waiting_, read, [this] { database_.stop(); });
    return rows;
}

std::unique_ptr<sql::SqlRows> Session::open(const std::string& sql) {
    return rowsOf({sql, {}}, atMost(Access::reading));
}

std::vector<std::vector<Variant>> Session::query(const std::string& sql,
                                                 const std::vector<Variant>& values) {
    return query({sql, parametersOf(values)});
}

std::vector<std::vector<Variant>> Session::query(const sql::ParameterizedStatement& statement) {
    const Access inTransaction = reading_ ? Access::describing : Access::writing;
    const auto found =
        rowsOf(statement, atMost(transactions_ > 0 ? inTransaction : Access::reading));
    std::vector<std::vector<Variant>> rows;
    while (found->reader && found->reader->next()) {
        auto& row = rows.emplace_back();
        for (std::size_t column = 0; column < found->columns.size(); ++column)
            row.push_back(found->reader->value(column, found->columns[column].kind));
    }
    return rows;
}

std::int64_t Session::runOnce(const sql::ParameterizedStatement& given) {
    database_.beginStatement();
    const auto run = [&]() -> std::int64_t {
        Statement statement(database_, given.text, atMost(Access::writing));
        bindValues(database_, statement, given.parameters);
        const auto before = sqlite3_total_changes64(database_.get());
        while (statement.step()) {
        }
        const bool touched = sqlite3_total_changes64(database_.get()) != before;
        return touched ? sqlite3_changes64(database_.get()) : 0;
    };
    return sql::workBeside(waiting_, run, [this] { database_.stop(); });
}

std::int64_t Session::run(const std::string& sql, const std::vector<Variant>& values) {
    const sql::ParameterizedStatement statement{sql, parametersOf(values)};
    // Without a guard, transactions may be begun and ended by statements.
    if (!guarded_ || transactions_ > 0) return runOnce(statement);
    rdoTransaction transaction(*this);
    const std::int64_t touched = runOnce(statement);
    transaction.commit();
    return touched;
}

std::int64_t Session::write(const sql::ParameterizedStatement& statement) {
    if (transactions_ == 0)
        throw RuntimeError(error_number::invalidProcedureCall, "No transaction was begun");
    return runOnce(statement);
}

void Session::control(const std::string& sql) {
    database_.beginStatement();
    const auto run = [&] {
        Statement statement(database_, sql, Access::everything);
        while (statement.step()) {
        }
        return true;
    };
    sql::workBeside(waiting_, run, [this] { database_.stop(); });
}

void Session::begin() {
    if (transactions_ > 0) {
        control("SAVEPOINT catalogador_" + decimalText(transactions_));
    } else {
        turns_.beforeTurn();
        // A lock that is taken at once can be waited for; one that is taken later may fail.
        control("BEGIN IMMEDIATE");
        turns_.turnBegan();
    }
    ++transactions_;
}

StatementPlan Session::prepare(const std::string& sql) {
    const std::string text = sql::singleStatement(sql, syntax_);
    StatementPlan plan = sql::planOf(text, syntax_);
    if (sql::effectOf(text, syntax_) == sql::StatementEffect::other) return plan;
    const Statement statement(database_, text, atMost(Access::writing));
    plan.writes = plan.writes || sqlite3_stmt_readonly(statement.get()) == 0;
    return plan;
}

void Session::beginReading() {
    if (transactions_ > 0)
        throw RuntimeError(error_number::invalidProcedureCall, "A transaction was begun before");
    control("PRAGMA query_only = 1");
    reading_ = true;
    control("BEGIN");
    ++transactions_;
}

void Session::endReading() {
    if (!reading_) return;
    reading_ = false;
    control("PRAGMA query_only = 0");
}

void Session::commit() {
    end("COMMIT");
}

void Session::rollback() {
    end("ROLLBACK");
    endReading();
}

void Session::end(const std::string& how) {
    if (transactions_ == 0)
        throw RuntimeError(error_number::invalidProcedureCall, "No transaction was begun");
    if (transactions_ > 1) {
        --transactions_;
        const std::string savepoint = "catalogador_" + decimalText(transactions_);
        if (how == "ROLLBACK") control("ROLLBACK TO SAVEPOINT " + savepoint);
        control("RELEASE SAVEPOINT " + savepoint);
        return;
    }
    // Some errors, of a full disk for one, end the transaction by themselves.
    const bool ended = sqlite3_get_autocommit(database_.get()) != 0;
    if (ended && how == "ROLLBACK") {
        transactions_ = 0;
        turns_.turnEnded();
        return;
    }
    control(how);
    transactions_ = 0;
    turns_.turnEnded();
}

}  // namespace catalogador::sqlite
