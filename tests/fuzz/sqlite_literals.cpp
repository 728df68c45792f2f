// What passes as data in a statement for SQLite leaves the statement what it is to SQLite's own
// parser: the same program, but for the texts in it.
#include <sqlite3.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

#include "../sql/dialects.h"
#include "hostile_statement.h"
#include "runtime/text.h"

namespace {

using Statement = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

sqlite3* database() {
    static sqlite3* const opened = [] {
        sqlite3* handle = nullptr;
        if (sqlite3_open(":memory:", &handle) != SQLITE_OK) std::abort();
        return handle;
    }();
    return opened;
}

/// Null for what SQLite does not take, and for several statements.
Statement prepared(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    const int result = sqlite3_prepare_v2(database(), sql.c_str(), -1, &statement, &rest);
    if (result != SQLITE_OK || rest != sql.c_str() + sql.size()) {
        sqlite3_finalize(statement);
        statement = nullptr;
    }
    return {statement, sqlite3_finalize};
}

/// The operations of SQLite's program for the statement; nothing where there is none.
std::optional<std::string> programOf(const std::string& sql) {
    if (!prepared(sql)) return std::nullopt;
    const Statement explained = prepared("Explain " + sql);
    if (!explained) return std::nullopt;
    std::string program;
    while (sqlite3_step(explained.get()) == SQLITE_ROW)
        program +=
            std::string(reinterpret_cast<const char*>(sqlite3_column_text(explained.get(), 1))) +
            " ";
    return program;
}

/// A text's value decides here what is done.
bool goesByTexts(const std::string& sql) {
    using namespace catalogador;
    return containsText(sql, "like", Compare::text) || containsText(sql, "glob", Compare::text) ||
           containsText(sql, "explain", Compare::text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    static const sql::SqlSyntax syntax = dialects::sqlite.facts().syntax;
    FuzzedDataProvider data(bytes, size);
    const fuzz::HostileStatement statement = fuzz::hostileStatement(data, {{"'", "'"}});
    const std::string& sql = statement.sql.text();
    // A statement with a NUL of the metadata's own never gets there.
    if (statement.plain.find('\0') != std::string::npos || goesByTexts(sql)) return 0;
    if (!fuzz::isLetThrough(statement.sql, syntax)) return 0;
    const auto expected = programOf(statement.plain);
    if (!expected) return 0;
    const auto program = programOf(sql);
    if (program != expected) fuzz::report(statement, *expected, program.value_or("nothing"));
    return 0;
}
