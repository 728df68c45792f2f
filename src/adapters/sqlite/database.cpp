#include "adapters/sqlite/database.h"

#include <array>
#include <thread>
#include <utility>

#include "adapters/sql/dialects/sqlite.h"
#include "adapters/sql/statement_text.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sqlite {

namespace {

/// How many of its steps SQLite does between two looks at the clock.
constexpr int stepsBetweenLooks = 1000;

/// Far more than a record or a list needs, and too little for a statement to exhaust the machine.
constexpr std::array<std::pair<int, int>, 6> limits{{
    {SQLITE_LIMIT_LENGTH, 256 << 20},
    {SQLITE_LIMIT_SQL_LENGTH, 16 << 20},
    {SQLITE_LIMIT_EXPR_DEPTH, 500},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 100},
    {SQLITE_LIMIT_ATTACHED, 0},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
}};

/// A path that SQLite takes for nothing else than a path.
std::string plainPath(const std::string& file) {
    if (file.empty() || file.find('\0') != std::string::npos)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "This is no name of a file: " + file);
    return file.starts_with("file:") || file.starts_with(':') ? "./" + file : file;
}

std::string errorText(const std::string& state, const std::string& text, int result) {
    constexpr int primaryCode = 0xff;
    return state + ": [SQLite]" + text + " (" + decimalText(result & primaryCode) + ")";
}

ErrorCause causeOf(int result) {
    constexpr int primaryCode = 0xFF;
    switch (result & primaryCode) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return ErrorCause::locked;
        case SQLITE_READONLY:
            return ErrorCause::readOnly;
        case SQLITE_FULL:
            return ErrorCause::full;
        default:
            return ErrorCause::unknown;
    }
}

}  // namespace

Database::Database(const std::string& file, bool create, bool guarded,
                   const sql::Timeouts& timeouts)
    : timeouts_(timeouts) {
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(plainPath(file).c_str(), &opened,
                        SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0), nullptr);
    handle_.reset(opened);
    if (opened == nullptr)
        throw RuntimeError(error_number::statementFailed,
                           errorText("HY001", sqlite3_errstr(result), result));
    check(result);
    sqlite3_progress_handler(
        get(), stepsBetweenLooks,
        [](void* self) { return static_cast<Database*>(self)->goesOn() ? 0 : 1; }, this);
    sqlite3_busy_handler(
        get(),
        [](void* self, int tries) {
            return static_cast<Database*>(self)->waitForLock(tries) ? 1 : 0;
        },
        this);
    harden(guarded);
}

void Database::harden(bool guarded) {
    // How often the disk is waited for is what it is over SQLite's ODBC driver.
    check(sqlite3_exec(get(), "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr));
    for (const auto& [setting, on] : {std::pair(SQLITE_DBCONFIG_ENABLE_FKEY, 1),
                                      std::pair(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0),
                                      std::pair(SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0)})
        check(sqlite3_db_config(get(), setting, on, nullptr));
    if (!guarded) return;
    check(sqlite3_db_config(get(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
    check(sqlite3_db_config(get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr));
    for (const auto& [limit, most] : limits) sqlite3_limit(get(), limit, most);
    check(sqlite3_set_authorizer(
        get(),
        [](void* self, int action, const char* first, const char* second, const char*,
           const char*) {
            const Access access = static_cast<Database*>(self)->access_;
            return isAllowed(access, action, first, second) ? SQLITE_OK : SQLITE_DENY;
        },
        this));
}

void Database::beginStatement() {
    stopped_ = false;
    statementEnd_ = timeouts_.statement.count() == 0 ? Clock::time_point::max()
                                                     : Clock::now() + timeouts_.statement;
}

bool Database::goesOn() const {
    return !stopped_ && Clock::now() < statementEnd_;
}

bool Database::waitForLock(int tries) {
    constexpr unsigned longestPause = 4;
    const auto now = Clock::now();
    if (tries == 0) lockEnd_ = now + sql::endless(timeouts_.lock);
    if (stopped_ || now >= lockEnd_) return false;
    // Uneven pauses, so that of many who wait it is not always the same one who looks first.
    lastPause_ =
        lastPause_ * 1103515245U + 12345U + static_cast<unsigned>(now.time_since_epoch().count());
    const std::chrono::milliseconds pause(tries < 3 ? 1 : 1 + (lastPause_ >> 16U) % longestPause);
    std::this_thread::sleep_for(pause);
    // The wait for others is not the statement's own time.
    if (statementEnd_ != Clock::time_point::max()) statementEnd_ += Clock::now() - now;
    return true;
}

void Database::check(int result) const {
    if (result == SQLITE_OK || result == SQLITE_ROW || result == SQLITE_DONE) return;
    const bool late = result == SQLITE_INTERRUPT && !stopped_ && Clock::now() >= statementEnd_;
    if (late)
        throw RuntimeError(
            error_number::statementFailed,
            errorText("HYT00",
                      "the statement took longer than " +
                          decimalText(sql::wholeSeconds(timeouts_.statement).count()) + " s",
                      result));
    throw RuntimeError(error_number::statementFailed,
                       errorText("HY000", sqlite3_errmsg(get()), result), causeOf(result));
}

Statement::Statement(Database& database, const std::string& sql, Access access)
    : database_(database), access_(access) {
    const sql::SqlSyntax& syntax = sql::sqliteDialect().facts().syntax;
    if (sql.find('\0') != std::string::npos)
        throw RuntimeError(error_number::statementFailed,
                           errorText("HY000", "the statement contains a NUL", SQLITE_ERROR));
    const std::string text = sql::singleStatement(sql, syntax);
    sqlite3_stmt* prepared = nullptr;
    const char* rest = nullptr;
    database_.allow(access_);
    const int result = sqlite3_prepare_v3(database_.get(), text.c_str(),
                                          static_cast<int>(text.size()) + 1, 0, &prepared, &rest);
    handle_.reset(prepared);
    database_.check(result);
    // What is one statement is SQLite's to say.
    if (prepared == nullptr || !trim(sql::withoutComments(rest, syntax)).empty())
        throw RuntimeError(error_number::statementFailed,
                           "The text contains more than one statement");
}

bool Statement::step() {
    // A statement that finds the schema changed asks the authorizer again.
    database_.allow(access_);
    const int result = sqlite3_step(get());
    database_.check(result);
    return result == SQLITE_ROW;
}

}  // namespace catalogador::sqlite
