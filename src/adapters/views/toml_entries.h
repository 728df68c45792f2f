#pragma once
#include <toml++/toml.h>

#include <string>
#include <string_view>
#include <vector>

namespace catalogador::views {

/// An entry of a file: a key with its value, or the head of a table.
struct TomlEntry {
    /// "view.ABMTitulo", "fields/TextoCorto.ACoLen": the same in every text of a file.
    std::string path;
    /// The line that it begins on, from 1.
    std::size_t line = 0;
};

/// Every entry by its line. Elements of lists are told by their first value, and by their place
/// among those that have the same.
std::vector<TomlEntry> entriesOf(const toml::table& table);

}  // namespace catalogador::views
