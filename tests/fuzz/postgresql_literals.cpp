// What passes as data in a statement for PostgreSQL leaves the statement what it is to PostgreSQL's
// own parser: the same one, but for the constants in it.
#include <pg_query.h>

#include "../sql/dialects.h"
#include "hostile_statement.h"

namespace {

struct Reading {
    /// The statement with "$1" and so on in the place of its constants; empty when it is none.
    std::string normalized;
    std::string error;
};

Reading readingOf(const std::string& sql) {
    const PgQueryNormalizeResult result = pg_query_normalize(sql.c_str());
    Reading reading;
    if (result.error != nullptr)
        reading.error = result.error->message;
    else
        reading.normalized = result.normalized_query;
    pg_query_free_normalize_result(result);
    return reading;
}

/// Of a text with escapes, what is in it may be refused.
bool isAboutEscapes(const std::string& error) {
    for (const char* part : {"escape", "byte sequence", "surrogate", "Unicode"})
        if (error.find(part) != std::string::npos) return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    static const sql::SqlSyntax syntax = dialects::postgresql.facts().syntax;
    FuzzedDataProvider data(bytes, size);
    const fuzz::HostileStatement statement = fuzz::hostileStatement(data, {{"'", "'"},
                                                                           {"E'", "'"},
                                                                           {"$q$", "$q$"},
                                                                           {"$$", "$$"},
                                                                           {"U&'", "'"},
                                                                           {"'a'\n'", "'"},
                                                                           {"E'a'\n'", "'"}});
    if (statement.plain.find('\0') != std::string::npos) return 0;
    if (!fuzz::isLetThrough(statement.sql, syntax)) return 0;
    const Reading expected = readingOf(statement.plain);
    if (!expected.error.empty()) return 0;
    const Reading reading = readingOf(statement.sql.text());
    if (!isAboutEscapes(reading.error) && reading.normalized != expected.normalized)
        fuzz::report(statement, expected.normalized, reading.normalized + reading.error);
    return 0;
}
