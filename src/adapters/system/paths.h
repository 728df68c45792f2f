#pragma once
#include <filesystem>
#include <string>
#include <string_view>

namespace catalogador {

// Where narrow texts of the system are not UTF-8, the conversions of std::filesystem::path would
// take one file's name for another's.

/// The path that a UTF-8 text names.
inline std::filesystem::path pathOf(std::string_view text) {
    return {std::u8string(text.begin(), text.end())};
}

/// The path as UTF-8 text.
inline std::string pathText(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace catalogador
