#include "adapters/views/toml_entries.h"

#include <algorithm>
#include <map>

namespace catalogador::views {

namespace {

/// What tells an element of a list from the others: the value of its first key.
std::string nameOf(const toml::table& element) {
    for (const char* key : {"ACoKeyControl", "ForOrdenSQL", "UsuNombre"}) {
        const toml::node* value = element.get(key);
        if (value == nullptr) continue;
        if (const auto text = value->value<std::string>()) return *text;
        if (const auto number = value->value<std::int64_t>()) return std::to_string(*number);
    }
    return {};
}

void addTable(std::vector<TomlEntry>& entries, const std::string& path, const toml::table& table);

void addNode(std::vector<TomlEntry>& entries, const std::string& path, const toml::key& key,
             const toml::node& node) {
    if (const toml::table* table = node.as_table()) {
        addTable(entries, path, *table);
        return;
    }
    const toml::array* list = node.as_array();
    if (list == nullptr || !list->is_array_of_tables()) {
        entries.push_back({path, key.source().begin.line});
        return;
    }
    std::map<std::string, int> seen;
    for (const toml::node& element : *list) {
        const std::string name = nameOf(*element.as_table());
        const int before = seen[name]++;
        addTable(entries, path + "/" + name + (before > 0 ? "/" + std::to_string(before) : ""),
                 *element.as_table());
    }
}

void addTable(std::vector<TomlEntry>& entries, const std::string& path, const toml::table& table) {
    if (!path.empty()) entries.push_back({path, table.source().begin.line});
    for (const auto& [key, node] : table)
        addNode(entries,
                path.empty() ? std::string(key.str()) : path + "." + std::string(key.str()), key,
                node);
}

}  // namespace

std::vector<TomlEntry> entriesOf(const toml::table& table) {
    std::vector<TomlEntry> entries;
    addTable(entries, {}, table);
    std::stable_sort(
        entries.begin(), entries.end(),
        [](const TomlEntry& left, const TomlEntry& right) { return left.line < right.line; });
    return entries;
}

}  // namespace catalogador::views
