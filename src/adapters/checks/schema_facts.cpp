#include "adapters/checks/schema_facts.h"

#include "adapters/checks/numbers.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

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
    const sql::DialectFacts& dialect = database.dialect().facts();
    for (const auto& row : database.rows(std::string(dialect.columnsQuery)))
        facts.tables_[foldCase(textOf(row[0]))].columns[foldCase(textOf(row[1]))] = factsOf(row);
    std::map<std::pair<std::string, std::string>, std::set<std::string>> keys;
    for (const auto& row : database.rows(std::string(dialect.keysQuery)))
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
