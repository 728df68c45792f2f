#include "adapters/export/workbook_text.h"

#include <algorithm>
#include <cctype>

#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador::exporting {

namespace {

constexpr std::size_t longestName = 31;

unsigned byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool continues(unsigned byte) {
    return (byte & 0xC0U) == 0x80U;
}

bool isHeld(char32_t character) {
    return character != 0 && character != 0xFFFE && character != 0xFFFF &&
           character < invalidByteBase;
}

/// Whether "_xHHHH_", a character by its number, starts there.
bool isNumberedCharacter(std::string_view text) {
    constexpr std::size_t length = 7;
    return text.size() >= length && text.starts_with("_x") && text[length - 1] == '_' &&
           std::ranges::all_of(text.substr(2, 4), [](char digit) {
               return std::isxdigit(static_cast<unsigned char>(digit)) != 0;
           });
}

}  // namespace

std::size_t utf16Units(std::string_view text) {
    std::size_t units = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!continues(byteAt(text, i))) units += byteAt(text, i) >= 0xF0U ? 2 : 1;
    return units;
}

bool workbookHolds(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (!isHeld(nextCharacter(text, at))) return false;
    return true;
}

std::string workbookText(std::string_view text) {
    std::string written;
    for (std::size_t i = 0; i < text.size(); ++i) {
        written += text[i];
        if (text[i] == '_' && isNumberedCharacter(text.substr(i))) written += "x005F_";
    }
    return written;
}

std::string sheetName(const std::string& title) {
    std::string name;
    for (const char character : workbookHolds(title) ? title : std::string()) {
        const bool control = static_cast<unsigned char>(character) < ' ';
        const bool kept = std::string_view("[]:*?/\\").find(character) == std::string_view::npos;
        name += kept && !control ? character : ' ';
    }
    while (utf16Units(name) > longestName) {
        while (!name.empty() && continues(byteAt(name, name.size() - 1))) name.pop_back();
        name.pop_back();
    }
    const auto bare = [](char character) { return character == '\'' || character == ' '; };
    while (!name.empty() && bare(name.back())) name.pop_back();
    while (!name.empty() && bare(name.front())) name.erase(0, 1);
    // A spreadsheet program keeps this name for itself.
    if (upperCase(name) == "HISTORY") name += "_";
    return name.empty() ? "1" : name;
}

}  // namespace catalogador::exporting
