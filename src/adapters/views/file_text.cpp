#include "adapters/views/file_text.h"

#include <array>
#include <charconv>

#include "adapters/checks/finding.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

/// A text of one line is written on several when it has more bytes than this.
constexpr std::size_t longestLine = 96;

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

std::string escapedControl(char c) {
    switch (c) {
        case '\t':
            return "\\t";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        default:
            break;
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    return std::string("\\u00") + digits[byte >> 4U] + digits[byte & 15U];
}

/// The text between `"` or, with `lines`, between `"""`, where three quotes and one at the end
/// would end it.
std::string escaped(std::string_view text, bool lines) {
    std::string result;
    int quotes = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        quotes = c == '"' ? quotes + 1 : 0;
        const bool endsText = !lines || quotes % 3 == 0 || at + 1 == text.size();
        if (c == '\\' || (c == '"' && endsText))
            result += std::string("\\") + c;
        else if (isControl(c) && !(lines && (c == '\n' || c == '\t')))
            result += escapedControl(c);
        else
            result += c;
    }
    return result;
}

bool canStandUnescaped(std::string_view text) {
    if (text.find("'''") != std::string_view::npos || text.ends_with('\'')) return false;
    for (const char c : text)
        if (isControl(c) && c != '\n' && c != '\t') return false;
    return true;
}

/// Whether a line may end before this blank. What follows a line that ends in a backslash loses its
/// leading blanks, and there the blank is kept by standing before the backslash.
bool canBreakAt(std::string_view text, std::size_t blank) {
    return text[blank] == ' ' && blank + 1 < text.size() && text[blank + 1] != ' ' &&
           text[blank + 1] != '\t' && blank > 0;
}

/// The last place to break a line that may have `room` bytes; its end when there is none.
std::size_t breakOf(std::string_view text, std::size_t room) {
    std::size_t found = text.size();
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (at > room && found != text.size()) break;
        if (canBreakAt(text, at)) found = at + 1;
    }
    return found;
}

std::string brokenText(std::string_view text) {
    std::string result = "\"\"\"\\\n";
    while (!text.empty()) {
        const std::size_t end =
            text.size() <= longestLine ? text.size() : breakOf(text, longestLine);
        result += "    " + escaped(text.substr(0, end), true);
        text.remove_prefix(end);
        if (!text.empty()) result += "\\\n";
    }
    return result + "\"\"\"";
}

std::string valueText(const Variant& value) {
    if (const auto* text = value.as<std::string>()) return tomlText(*text);
    if (const auto* whole = value.as<std::int64_t>()) return decimalText(*whole);
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), *value.as<double>()).ptr;
    const std::string number(digits.data(), end);
    return number.find_first_of(".e") == std::string::npos ? number + ".0" : number;
}

void addRow(std::string& text, std::span<const Column> columns, const Row& row) {
    for (std::size_t index = 0; index < columns.size(); ++index)
        if (!row[index].isNull())
            text += std::string(columns[index].name) + " = " + valueText(row[index]) + "\n";
}

void addRows(std::string& text, const std::string& name, std::span<const Column> columns,
             const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        text += "\n[[" + name + "]]\n";
        addRow(text, columns, row);
    }
}

void addTest(std::string& text, const TestCall& test) {
    const TestCall usual;
    text += "\n[test]\nscript = " + tomlText(test.script) +
            "\nexpected = " + tomlText(test.expected) + "\n";
    if (test.user != usual.user) text += "user = " + tomlText(test.user) + "\n";
    if (test.company != usual.company) text += "company = " + decimalText(test.company) + "\n";
    if (test.language != usual.language) text += "language = " + decimalText(test.language) + "\n";
    if (test.locale != usual.locale) text += "locale = " + tomlText(test.locale) + "\n";
    if (test.appKey != usual.appKey) text += "app-key = " + tomlText(test.appKey) + "\n";
}

void addIgnored(std::string& text, const std::vector<int>& ignored) {
    text += "\n[check]\nignore = [";
    std::string_view separator;
    for (const int number : ignored) {
        text += std::string(separator) + "\"" + checks::idOf(number) + "\"";
        separator = ", ";
    }
    text += "]\n";
}

}  // namespace

std::string tomlText(std::string_view text) {
    if (text.find('\n') != std::string_view::npos) {
        const bool hasBackslash = text.find('\\') != std::string_view::npos;
        if (hasBackslash && canStandUnescaped(text)) return "'''\n" + std::string(text) + "'''";
        return "\"\"\"\n" + escaped(text, true) + "\"\"\"";
    }
    if (text.size() > longestLine && breakOf(text, longestLine) < text.size() &&
        text.front() != ' ' && text.front() != '\t')
        return brokenText(text);
    return "\"" + escaped(text, false) + "\"";
}

std::string fileText(const View& view) {
    std::string text = "[view]\n";
    addRow(text, viewColumns(), view.view);
    if (view.hasSequence) text += "\n[sequence]\nNumNombre = " + tomlText(view.name()) + "\n";
    addRows(text, "fields", fieldColumns(), view.fields);
    addRows(text, "rules", ruleColumns(), view.rules);
    addRows(text, "rights", rightColumns(), view.rights);
    if (!view.ignored.empty()) addIgnored(text, view.ignored);
    if (view.test) addTest(text, *view.test);
    return text;
}

}  // namespace catalogador::views
