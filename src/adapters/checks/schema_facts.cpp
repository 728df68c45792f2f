#include "adapters/checks/schema_facts.h"

#include "adapters/checks/numbers.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

/// Statements that list what there is: (table, column, type, length, digits of seconds), and
/// (table, key, column) of every unique key.
struct Catalogue {
    const char* columns = nullptr;
    const char* keys = nullptr;
};

Catalogue catalogueOf(Dialect dialect) {
    switch (dialect) {
        case Dialect::sqlite:
            return {
                "Select m.name, p.name, p.type, Null, Null From sqlite_master m "
                "Join pragma_table_info(m.name) p Where m.type In ('table', 'view')",
                "Select m.name, l.name, i.name From sqlite_master m "
                "Join pragma_index_list(m.name) l Join pragma_index_info(l.name) i "
                "Where m.type = 'table' And l.\"unique\" = 1 And l.partial = 0 "
                "Union All Select m.name, '', p.name From sqlite_master m "
                "Join pragma_table_info(m.name) p Where m.type = 'table' And p.pk > 0"};
        case Dialect::postgresql:
            return {
                "Select table_name, column_name, data_type, character_maximum_length, "
                "datetime_precision From information_schema.columns "
                "Where table_schema = Any (current_schemas(false))",
                "Select t.relname, Cast(i.indexrelid As Varchar(20)), a.attname "
                "From pg_index i Join pg_class t On t.oid = i.indrelid "
                "Join pg_attribute a On a.attrelid = t.oid And a.attnum = Any (i.indkey) "
                "Where i.indisunique And i.indpred Is Null And pg_table_is_visible(t.oid)"};
        default:
            return {
                "Select table_name, column_name, data_type, character_maximum_length, "
                "datetime_precision From information_schema.columns "
                "Where table_schema = Database()",
                "Select table_name, index_name, column_name From information_schema.statistics "
                "Where table_schema = Database() And non_unique = 0"};
    }
}

std::string textOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

/// The number in "VARCHAR(100)"; 0 when there is none.
int declaredLength(std::string_view type) {
    const std::size_t open = type.find('(');
    if (open == std::string_view::npos || !containsText(type, "CHAR", Compare::text)) return 0;
    const std::size_t close = type.find_first_of("),", open);
    const auto number = wholeNumber(type.substr(open + 1, close - open - 1));
    return static_cast<int>(number.value_or(0));
}

ColumnFacts factsOf(const std::vector<Variant>& row) {
    ColumnFacts facts;
    facts.type = textOf(row[2]);
    facts.length = row[3].isNull() ? declaredLength(facts.type)
                                   : static_cast<int>(wholeNumber(textOf(row[3])).value_or(0));
    if (!row[4].isNull())
        facts.fraction = static_cast<int>(wholeNumber(textOf(row[4])).value_or(0));
    return facts;
}

}  // namespace

const ColumnFacts* TableFacts::column(std::string_view name) const {
    const auto found = columns.find(foldCase(name));
    return found == columns.end() ? nullptr : &found->second;
}

SchemaFacts SchemaFacts::of(const Database& database) {
    SchemaFacts facts;
    const Catalogue catalogue = catalogueOf(database.dialect());
    for (const auto& row : database.rows(catalogue.columns))
        facts.tables_[foldCase(textOf(row[0]))].columns[foldCase(textOf(row[1]))] = factsOf(row);
    std::map<std::pair<std::string, std::string>, std::set<std::string>> keys;
    for (const auto& row : database.rows(catalogue.keys))
        keys[{foldCase(textOf(row[0])), textOf(row[1])}].insert(foldCase(textOf(row[2])));
    for (auto& [place, columns] : keys) {
        const auto table = facts.tables_.find(place.first);
        if (table != facts.tables_.end()) table->second.uniqueKeys.push_back(std::move(columns));
    }
    return facts;
}

const TableFacts* SchemaFacts::table(std::string_view name) const {
    const auto found = tables_.find(foldCase(name));
    return found == tables_.end() ? nullptr : &found->second;
}

const ColumnFacts* SchemaFacts::column(std::string_view table, std::string_view name) const {
    const TableFacts* found = this->table(table);
    return found == nullptr ? nullptr : found->column(name);
}

}  // namespace catalogador::checks
