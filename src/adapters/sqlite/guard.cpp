#include "adapters/sqlite/guard.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "runtime/text.h"

namespace catalogador::sqlite {

namespace {

/// Functions that run other code than the database's, or reach for files; some of them exist only
/// where somebody has added them to the library.
constexpr std::array<std::string_view, 9> refusedFunctions{
    "load_extension", "fts3_tokenizer", "readfile",   "writefile", "edit",
    "blob_export",    "blob_import",    "export_sql", "import_sql"};

bool isRefused(std::string_view function) {
    return std::any_of(refusedFunctions.begin(), refusedFunctions.end(),
                       [&](std::string_view refused) { return equalText(function, refused); });
}

std::string_view textOf(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

/// What is told of tables and their keys, and changes nothing.
bool isDescription(std::string_view pragma) {
    return equalText(pragma, "table_info") || equalText(pragma, "index_list") ||
           equalText(pragma, "index_info");
}

/// SQLite's own tables hold the schema.
bool isOwnTable(std::string_view table) {
    constexpr std::string_view prefix = "sqlite_";
    return equalText(table.substr(0, prefix.size()), prefix);
}

}  // namespace

bool isAllowed(Access access, int action, const char* first, const char* second) {
    if (access == Access::everything) return true;
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_RECURSIVE:
            return true;
        case SQLITE_FUNCTION:
            return !isRefused(textOf(second));
        case SQLITE_UPDATE:
            // A query of a pragma declares the table of its answer, and SQLite asks for that what
            // it asks for a table that is created. The schema itself cannot be written so.
            if (access == Access::describing) return equalText(textOf(first), "sqlite_master");
            [[fallthrough]];
        case SQLITE_INSERT:
        case SQLITE_DELETE:
            return access == Access::writing && !isOwnTable(textOf(first));
        case SQLITE_PRAGMA:
            return access == Access::describing && isDescription(textOf(first));
        default:
            return false;
    }
}

}  // namespace catalogador::sqlite
