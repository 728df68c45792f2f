#include <algorithm>

#include "adapters/sql/dialect.h"
#include "adapters/sql/statement_text.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

constexpr std::array<std::string_view, 9> typesWithoutEquality{
    "json", "xml", "point", "polygon", "line", "lseg", "path", "box", "circle"};

// A name can be spelled with escapes in U&"" only, so that is refused as a whole.
constexpr std::array<std::string_view, 11> reachingFunctions{
    "set_config", "_to_xml",      "ts_stat",   "ts_rewrite", "dblink", "pg_read_",
    "pg_ls_",     "pg_stat_file", "lo_export", "lo_import",  "U&\""};

DialectFacts postgresqlFacts() {
    DialectFacts facts;
    facts.name = "postgresql";
    facts.title = "PostgreSQL";
    facts.products = {"PostgreSQL"};
    facts.syntax.escapeStrings = facts.syntax.dollarQuotes = facts.syntax.nestedComments = true;
    facts.syntax.unicodeQuotes = facts.syntax.continuedTexts = true;
    facts.syntax.digitTexts = "xXbB";
    facts.syntax.returnEndsComment = facts.syntax.numbersEndAtLetters = true;
    // A row that somebody writes moves. Parts of a table have addresses of their own.
    facts.rowAddress = {"ctid", "tableoid"};
    facts.rowAddressLasts = false;
    facts.columnsQuery =
        "Select table_name, column_name, data_type, character_maximum_length, "
        "datetime_precision From information_schema.columns "
        "Where table_schema = Any (current_schemas(false))";
    facts.keysQuery =
        "Select t.relname, Cast(i.indexrelid As Varchar(20)), a.attname "
        "From pg_index i Join pg_class t On t.oid = i.indrelid "
        "Join pg_attribute a On a.attrelid = t.oid And a.attnum = Any (i.indkey) "
        "Where i.indisunique And i.indpred Is Null And pg_table_is_visible(t.oid)";
    // The standard's clock stands still during a transaction.
    facts.clock = "Select clock_timestamp()::timestamp";
    facts.drawing = Drawing::returning;
    facts.typeNames = {"SMALLINT",     "INTEGER",       "REAL", "DOUBLE PRECISION", "VARCHAR(100)",
                       "VARCHAR(255)", "VARCHAR(2000)", "TEXT", "BOOLEAN",          "TIMESTAMP(6)"};
    facts.reachingFunctions = reachingFunctions;
    facts.busySessionQuery = "SELECT 1 FROM pg_stat_activity WHERE state <> 'idle' AND pid = ";
    facts.oneCommandQuery = "SELECT query_to_xmlschema(?, false, false, '') IS NULL";
    facts.fetchesAgain = facts.reportsBaseNames = true;
    facts.countsRowsOfQueries = facts.needsPlainCursor = facts.listsHosts = true;
    return facts;
}

std::string settingsQuery(const Timeouts& timeouts) {
    return "SELECT pg_backend_pid(), CASE WHEN EXISTS (SELECT 1 FROM pg_roles WHERE rolname = "
           "'pg_read_all_data') AND (SELECT rolsuper FROM pg_roles WHERE rolname = current_user) "
           "THEN 1 ELSE 0 END, set_config('standard_conforming_strings', 'on', false), "
           "set_config('lock_timeout', '" +
           decimalText(timeouts.lock.count()) + "', false), set_config('statement_timeout', '" +
           decimalText(timeouts.statement.count()) + "', false)";
}

class Postgresql : public Dialect {
  public:
    Postgresql() : Dialect(postgresqlFacts()) {}

    [[nodiscard]] ColumnKind columnKind(int sqlType, std::string_view typeName) const override {
        return equalText(typeName, "bool") ? ColumnKind::boolean : kindOfCode(sqlType);
    }

    [[nodiscard]] bool isComparable(const ColumnInfo& column) const override {
        return Dialect::isComparable(column) &&
               std::find(typesWithoutEquality.begin(), typesWithoutEquality.end(),
                         column.typeName) == typesWithoutEquality.end();
    }

    [[nodiscard]] std::string equals(const std::string& name,
                                     const ColumnInfo& column) const override {
        return column.typeName == "tid" ? name + " = CAST(? AS tid)"
                                        : Dialect::equals(name, column);
    }

    [[nodiscard]] SessionState setUp(SessionCommands& commands,
                                     const SessionSetUp& how) const override {
        SessionState state{.syntax = facts().syntax};
        const auto text = [](const Variant& value) { return toTextOrEmpty(value, Regional{}); };
        if (how.borrowed) {
            const auto rows = commands.ask("SHOW standard_conforming_strings");
            state.syntax.backslashEscapes = text(rows.at(0).at(0)) != "on";
            return state;
        }
        const auto row = commands.ask(settingsQuery(how.timeouts)).at(0);
        state.process = text(row.at(0));
        state.limitsChecks = text(row.at(1)) == "1";
        return state;
    }

    [[nodiscard]] std::string accessStatement(Access access) const override {
        return std::string("SET default_transaction_read_only = ") +
               (access == Access::reading ? "on" : "off");
    }

    [[nodiscard]] std::string beginCheck(bool limits) const override {
        std::string begin = "BEGIN READ ONLY; SET LOCAL standard_conforming_strings = on";
        // The tables stay those of the user, who may have a schema of the same name.
        if (limits)
            begin +=
                "; SELECT set_config('search_path', coalesce((SELECT "
                "string_agg(quote_ident(s), ', ') "
                "FROM unnest(current_schemas(false)) s), ''), true); SET LOCAL ROLE "
                "pg_read_all_data";
        return begin;
    }

    /// The driver never comes back from a COPY to itself, whoever stops it.
    [[nodiscard]] std::string_view refusal(std::string_view text,
                                           const SqlSyntax& syntax) const override {
        if (!containsText(text, "copy", Compare::text)) return {};
        const auto words = wordsOf(text, syntax);
        const bool toItself = !words.empty() && equalText(words[0], "copy") &&
                              std::any_of(words.begin(), words.end(), [](std::string_view word) {
                                  return equalText(word, "stdout") || equalText(word, "stdin");
                              });
        return toItself ? "COPY between the server and the program is not possible" : "";
    }

    /// Drivers may run a query that they are asked to prepare.
    [[nodiscard]] Preparation preparation(const std::string& text,
                                          const SqlSyntax& /*syntax*/) const override {
        return {.statements = {"PREPARE catalogador_prepared AS " + text,
                               "DEALLOCATE catalogador_prepared"}};
    }

    [[nodiscard]] std::string endSessionStatement(const std::string& process) const override {
        return "SELECT pg_terminate_backend(" + process + ")";
    }

    [[nodiscard]] std::vector<std::pair<std::string_view, std::string>> timeoutEntries(
        const Timeouts& timeouts) const override {
        if (timeouts.statement.count() <= 0) return {};
        const auto answer = wholeSeconds(timeouts.statement) + timeForTheNetwork;
        return {{"pqopt", "{tcp_user_timeout=" + decimalText(answer.count() * 1000) + "}"}};
    }

    [[nodiscard]] std::string oneCommandEntries(
        const std::vector<ConnectionEntry>& /*entries*/) const override {
        return ";UseServerSidePrepare=1;UseDeclareFetch=0";
    }
};

}  // namespace

const Dialect& postgresqlDialect() {
    static const Postgresql dialect;
    return dialect;
}

}  // namespace catalogador::sql
