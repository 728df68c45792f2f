#include "adapters/services/settings.h"

#include <filesystem>
#include <fstream>

#include "adapters/system/desk.h"
#include "adapters/system/paths.h"
#include "runtime/text.h"

namespace catalogador::services {

namespace {

std::string entryName(std::string_view key, std::string_view name) {
    return foldCase(std::string(key) + "\n" + std::string(name));
}

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace

Settings::Settings(const std::string& file, const std::map<std::string, std::string>& overrides) {
    for (const auto& [name, value] : overrides) overrides_[foldCase(name)] = value;
    std::ifstream input(pathOf(file));
    std::string key;
    for (std::string line; std::getline(input, line);) {
        if (line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
        const std::string_view text = withoutBlanks(line);
        if (text.empty() || text.front() == ';' || text.front() == '#') continue;
        if (text.front() == '[' && text.back() == ']') {
            key = withoutBlanks(text.substr(1, text.size() - 2));
            continue;
        }
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos) continue;
        stored_[entryName(key, withoutBlanks(text.substr(0, equals)))] =
            withoutBlanks(text.substr(equals + 1));
    }
}

std::string Settings::defaultFile() {
    const std::filesystem::path folder = system::configurationFolder();
    return folder.empty() ? "" : pathText(folder / "catalogador" / "catalogador.ini");
}

std::optional<std::string> Settings::read(const std::string& key, const std::string& name) const {
    if (const auto given = overrides_.find(foldCase(name)); given != overrides_.end())
        return given->second;
    const auto stored = stored_.find(entryName(key, name));
    if (stored == stored_.end()) return std::nullopt;
    return stored->second;
}

}  // namespace catalogador::services
