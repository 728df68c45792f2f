#include <algorithm>
#include <set>

#include "adapters/checks/context.h"
#include "adapters/schema/tables.h"
#include "modules/modIds.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

bool anyViewHasRule(const Metadata& metadata) {
    return std::any_of(metadata.views.begin(), metadata.views.end(),
                       [](const auto& entry) { return !orEmpty(entry.second.access).empty(); });
}

/// Whether a screen fails without the table.
bool isNeeded(const Metadata& metadata, std::string_view table) {
    if (table == "genListas" || table == "genClasificacionesEntes")
        return metadata.views.contains(viewClassifications);
    if (table == "cceImpuestos") return metadata.views.contains(viewTaxes);
    if (table == "accUsuarios" || table == "accPermisos") return anyViewHasRule(metadata);
    return true;
}

/// What a column holds, by the names that databases give their types.
enum class Contents { integer, number, text, yesNo, dateTime, unknown };

Contents contentsOf(std::string_view type) {
    const auto has = [&](const char* part) { return containsText(type, part, Compare::text); };
    if (has("BOOL") || has("BIT")) return Contents::yesNo;
    if (has("CHAR") || has("TEXT") || has("CLOB")) return Contents::text;
    if (has("DATE") || has("TIME")) return Contents::dateTime;
    if (has("INT") || has("SERIAL")) return Contents::integer;
    if (has("REAL") || has("FLOA") || has("DOUB") || has("NUM") || has("DEC"))
        return Contents::number;
    return Contents::unknown;
}

struct Expected {
    const char* name;
    std::set<Contents> fitting;
};

Expected expectedOf(sql::ColumnType type, const sql::Dialect& dialect) {
    switch (type) {
        case sql::ColumnType::smallInteger:
        case sql::ColumnType::integer:
            return {"a whole number", {Contents::integer, Contents::number}};
        case sql::ColumnType::single:
            return {"a number", {Contents::integer, Contents::number}};
        case sql::ColumnType::number:
            if (dialect.facts().keepsDecimalsInIntegers)
                return {"a number", {Contents::integer, Contents::number}};
            return {"a number with decimals", {Contents::number}};
        case sql::ColumnType::yesNo:
            return {"yes or no", {Contents::yesNo}};
        case sql::ColumnType::dateTime:
            return {"date and time", {Contents::dateTime}};
        default:
            return {"a text", {Contents::text}};
    }
}

void checkColumn(const Context& context, const schema::TableDefinition& table,
                 const schema::TableColumn& column, const TableFacts& facts) {
    const Place place{std::nullopt, std::string(table.name), std::string(column.name), {}};
    const ColumnFacts* found = facts.column(column.name);
    if (found == nullptr) {
        context.findings.add(kind::columnMissing, place, column.name);
        return;
    }
    const Contents contents = contentsOf(found->type);
    const Expected expected = expectedOf(column.type, context.database.dialect());
    if (contents != Contents::unknown && !expected.fitting.contains(contents)) {
        context.findings.add(kind::columnType, place, found->type, expected.name);
        return;
    }
    const bool onlyDays = equalText(found->type, "date");
    if (column.type == sql::ColumnType::dateTime && (found->fraction == 0 || onlyDays))
        context.findings.add(kind::stampWholeSeconds, place, found->type);
}

void checkKey(const Context& context, const schema::TableDefinition& table,
              const TableFacts& facts) {
    if (table.primaryKey.empty()) return;
    std::set<std::string> wanted;
    for (const std::string& column : splitText(table.primaryKey, ", "))
        wanted.insert(foldCase(column));
    // A key on some of the columns is one on all of them.
    const bool unique =
        std::any_of(facts.uniqueKeys.begin(), facts.uniqueKeys.end(), [&](const auto& key) {
            return std::includes(wanted.begin(), wanted.end(), key.begin(), key.end());
        });
    if (!unique)
        context.findings.add(kind::keyMissing, {std::nullopt, std::string(table.name), {}, {}},
                             table.primaryKey);
}

}  // namespace

void checkSchema(const Context& context) {
    for (const schema::TableDefinition& table : schema::schemaTables()) {
        const Place place{std::nullopt, std::string(table.name), {}, {}};
        const TableFacts* facts = context.metadata.schema.table(table.name);
        if (facts == nullptr) {
            const bool needed = isNeeded(context.metadata, table.name);
            context.findings.add(needed ? kind::tableMissing : kind::optionalTableMissing, place,
                                 table.name);
            continue;
        }
        for (const schema::TableColumn& column : table.columns)
            checkColumn(context, table, column, *facts);
        checkKey(context, table, *facts);
    }
}

}  // namespace catalogador::checks
