#include "adapters/sql/dialects/sqlite.h"

#include <algorithm>

#include "adapters/sql/statement_text.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

constexpr std::array<std::string_view, 7> reachingFunctions{
    "load_extension", "blob_export", "blob_import",   "readfile",
    "writefile",      "import_sql",  "fts3_tokenizer"};

struct NamePart {
    std::string_view part;
    ColumnKind kind;
};

/// Looked for in this order inside the declared type, as SQLite itself does.
constexpr std::array<NamePart, 21> typeParts{{
    {"BOOL", ColumnKind::boolean},        {"INT", ColumnKind::integer},
    {"CHAR", ColumnKind::text},           {"CLOB", ColumnKind::text},
    {"TEXT", ColumnKind::text},           {"STRING", ColumnKind::text},
    {"BLOB", ColumnKind::binary},         {"BINARY", ColumnKind::binary},
    {"BYTEA", ColumnKind::binary},        {"IMAGE", ColumnKind::binary},
    {"REAL", ColumnKind::real},           {"FLOA", ColumnKind::real},
    {"DOUB", ColumnKind::real},           {"DEC", ColumnKind::decimal},
    {"NUM", ColumnKind::decimal},         {"MONEY", ColumnKind::decimal},
    {"CURRENCY", ColumnKind::decimal},    {"DATETIME", ColumnKind::timestamp},
    {"TIMESTAMP", ColumnKind::timestamp}, {"DATE", ColumnKind::date},
    {"TIME", ColumnKind::time},
}};

DialectFacts sqliteFacts() {
    DialectFacts facts;
    facts.name = "sqlite";
    facts.title = "SQLite";
    facts.products = {"SQLite"};
    facts.errorMark = "[SQLite]";
    facts.syntax.backtickNames = facts.syntax.bracketNames = true;
    facts.syntax.digitTexts = "xX";
    facts.syntax.endsAtNul = facts.syntax.namedVariables = true;
    facts.lengthFunction = "Length";
    facts.rowAddress = {"_rowid_"};
    facts.columnsQuery =
        "Select m.name, p.name, p.type, Null, Null From sqlite_master m "
        "Join pragma_table_info(m.name) p Where m.type In ('table', 'view')";
    facts.keysQuery =
        "Select m.name, l.name, i.name From sqlite_master m "
        "Join pragma_index_list(m.name) l Join pragma_index_info(l.name) i "
        "Where m.type = 'table' And l.\"unique\" = 1 And l.partial = 0 "
        "Union All Select m.name, '', p.name From sqlite_master m "
        "Join pragma_table_info(m.name) p Where m.type = 'table' And p.pk > 0";
    facts.clock = {};
    // NUMERIC keeps whole numbers whole, and a column declared BIT is what the driver reports as a
    // bit.
    facts.typeNames = {"SMALLINT",     "INTEGER",       "REAL", "NUMERIC", "VARCHAR(100)",
                       "VARCHAR(255)", "VARCHAR(2000)", "TEXT", "BIT",     "TIMESTAMP"};
    // A text is converted to what the column is, if it can be.
    facts.typesTexts = false;
    facts.keepsTimeInDates = facts.keepsDecimalsInIntegers = facts.comparesAsText = true;
    facts.isFile = true;
    // A lock that is taken at once can be waited for; one that is taken later may fail.
    facts.beginWriting = "BEGIN IMMEDIATE";
    facts.beginReading = "BEGIN";
    facts.reachingFunctions = reachingFunctions;
    facts.fetchesAgain = facts.givesTextsOnly = facts.readsComments = true;
    facts.hidesNamesBehindAliases = facts.reportsBaseNames = true;
    return facts;
}

class Sqlite : public Dialect {
  public:
    Sqlite() : Dialect(sqliteFacts()) {}

    /// The declared type counts, because the driver gives the types that it does not know as text.
    [[nodiscard]] ColumnKind columnKind(int sqlType, std::string_view typeName) const override {
        const std::string name = upperCase(typeName);
        if (name == "BIT" || name.starts_with("BIT(")) return ColumnKind::boolean;
        const auto known = std::find_if(typeParts.begin(), typeParts.end(), [&](const auto& entry) {
            return name.find(entry.part) != std::string::npos;
        });
        return known != typeParts.end() ? known->kind : kindOfCode(sqlType);
    }

    [[nodiscard]] std::string equalsText(const std::string& name) const override {
        return name + " = ? COLLATE BINARY";
    }

    [[nodiscard]] SessionState setUp(SessionCommands& commands,
                                     const SessionSetUp& how) const override {
        if (!how.borrowed && !how.saysLockWait)
            commands.tell("PRAGMA busy_timeout = " +
                          decimalText(endless(how.timeouts.lock).count()));
        return {.syntax = facts().syntax};
    }

    [[nodiscard]] std::string accessStatement(Access access) const override {
        return std::string("PRAGMA query_only = ") + (access == Access::reading ? "1" : "0");
    }

    [[nodiscard]] Preparation preparation(const std::string& text,
                                          const SqlSyntax& syntax) const override {
        return {.statements = {"EXPLAIN " + withoutComments(text, syntax)}};
    }

    [[nodiscard]] std::optional<ErrorCause> causeOf(int number) const override {
        switch (number) {
            case 5:  // another connection
            case 6:  // another statement of this one
                return ErrorCause::locked;
            case 8:
                return ErrorCause::readOnly;
            case 13:
                return ErrorCause::full;
            default:
                return ErrorCause::unknown;
        }
    }

    [[nodiscard]] std::vector<std::pair<std::string_view, std::string>> timeoutEntries(
        const Timeouts& timeouts) const override {
        return {{"Timeout", decimalText(endless(timeouts.lock).count())}};
    }
};

}  // namespace

const Dialect& sqliteDialect() {
    static const Sqlite dialect;
    return dialect;
}

}  // namespace catalogador::sql
