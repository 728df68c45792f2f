#include "adapters/odbc/session_settings.h"

#include <array>
#include <charconv>
#include <map>
#include <vector>

#include "runtime/text.h"

namespace catalogador::odbc {

const char* const mariadbState =
    "SELECT CONNECTION_ID(), @@SESSION.sql_mode, @@SESSION.character_set_client, VERSION()";

const char* const oneCommandQuery = "SELECT query_to_xmlschema(?, false, false, '') IS NULL";

std::string accessStatement(Dialect dialect, Access access) {
    const bool reading = access == Access::reading;
    switch (dialect) {
        case Dialect::postgresql:
            return std::string("SET default_transaction_read_only = ") + (reading ? "on" : "off");
        case Dialect::mariadb:
            return std::string("SET SESSION TRANSACTION READ ") + (reading ? "ONLY" : "WRITE");
        case Dialect::sqlite:
            return std::string("PRAGMA query_only = ") + (reading ? "1" : "0");
        case Dialect::other:
            break;
    }
    return {};
}

std::string postgresqlSettings(const sql::Timeouts& timeouts) {
    return "SELECT pg_backend_pid(), CASE WHEN EXISTS (SELECT 1 FROM pg_roles WHERE rolname = "
           "'pg_read_all_data') AND (SELECT rolsuper FROM pg_roles WHERE rolname = current_user) "
           "THEN 1 ELSE 0 END, set_config('standard_conforming_strings', 'on', false), "
           "set_config('lock_timeout', '" +
           decimalText(timeouts.lock.count()) + "', false), set_config('statement_timeout', '" +
           decimalText(timeouts.statement.count()) + "', false)";
}

std::string postgresqlCheck(bool asReader) {
    std::string begin = "BEGIN READ ONLY; SET LOCAL standard_conforming_strings = on";
    // The tables stay those of the user, who may have a schema of the same name.
    if (asReader)
        begin +=
            "; SELECT set_config('search_path', coalesce((SELECT string_agg(quote_ident(s), ', ') "
            "FROM unnest(current_schemas(false)) s), ''), true); SET LOCAL ROLE pg_read_all_data";
    return begin;
}

std::string mariadbSettings(const sql::Timeouts& timeouts) {
    const std::string lock = decimalText(sql::wholeSeconds(sql::endless(timeouts.lock)).count());
    // A text with its quotes doubled ends where the others' ends, whatever stands in it.
    return "SET SESSION innodb_lock_wait_timeout = " + lock + ", lock_wait_timeout = " + lock +
           ", max_statement_time = " + decimalText(sql::wholeSeconds(timeouts.statement).count()) +
           ", sql_mode = CONCAT(@@SESSION.sql_mode, ',NO_BACKSLASH_ESCAPES')";
}

namespace {

/// "10.11.6-MariaDB" as 101106; 0 for a server of another make, which reads comments for versions
/// in its own way.
int versionNumber(const std::string& version) {
    if (!containsText(version, "MariaDB", Compare::text)) return 0;
    int number = 0;
    const char* at = version.data();
    const char* const end = at + version.size();
    for (int part = 0; part < 3; ++part) {
        int value = 0;
        const auto read = std::from_chars(at, end, value);
        if (read.ec != std::errc()) return 0;
        number = number * 100 + value;
        at = read.ptr == end ? end : read.ptr + 1;
    }
    return number;
}

/// In other sets a byte of a character may look like a quote or a backslash.
bool readsByteByByte(const std::string& characterSet) {
    constexpr std::array<std::string_view, 6> sets{"utf8mb4", "utf8mb3", "utf8",
                                                   "latin1",  "ascii",   "binary"};
    for (const std::string_view set : sets)
        if (characterSet == set) return true;
    return false;
}

}  // namespace

sql::SqlSyntax mariadbSyntax(const std::string& mode, const std::string& characterSet,
                             const std::string& version) {
    const auto has = [&](const char* flag) { return mode.find(flag) != std::string::npos; };
    sql::SqlSyntax syntax = sql::syntaxOf(Dialect::mariadb);
    syntax.backslashEscapes = !has("NO_BACKSLASH_ESCAPES");
    syntax.doubleQuotedTexts = !has("ANSI_QUOTES");
    syntax.serverVersion = versionNumber(version);
    syntax.unknown = !readsByteByByte(characterSet);
    return syntax;
}

std::string_view reachingFunction(Dialect dialect, std::string_view text) {
    // A search of the text is enough because these names cannot be written in another way. Only
    // PostgreSQL's U&"" can spell a name with escapes, so it is refused as a whole.
    static const std::map<Dialect, std::vector<std::string_view>> functions{
        {Dialect::sqlite,
         {"load_extension", "blob_export", "blob_import", "readfile", "writefile", "import_sql",
          "fts3_tokenizer"}},
        {Dialect::postgresql,
         {"set_config", "_to_xml", "ts_stat", "ts_rewrite", "dblink", "pg_read_", "pg_ls_",
          "pg_stat_file", "lo_export", "lo_import", "U&\""}},
        {Dialect::mariadb, {"load_file"}},
    };
    const auto known = functions.find(dialect);
    if (known == functions.end()) return {};
    for (const std::string_view function : known->second)
        if (containsText(text, function, Compare::text)) return function;
    return {};
}

std::string endSessionStatement(Dialect dialect, const std::string& number) {
    if (number.empty()) return {};
    if (dialect == Dialect::postgresql) return "SELECT pg_terminate_backend(" + number + ")";
    if (dialect == Dialect::mariadb) return "KILL CONNECTION " + number;
    return {};
}

}  // namespace catalogador::odbc
