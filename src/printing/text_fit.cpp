#include "printing/text_fit.h"

#include <algorithm>

#include "runtime/utf8.h"

namespace catalogador {

namespace {

constexpr std::string_view ellipsis = "…";
/// Broken into lines shorter than this, a number or a word can no longer be read.
constexpr std::string_view shortestLine = "0000";
constexpr std::size_t commonCharacters = 0x800;

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The character that begins at that byte.
std::string_view characterAt(std::string_view text, std::size_t begin) {
    std::size_t end = begin + 1;
    while (end < text.size() && continuesCharacter(text[end])) ++end;
    return text.substr(begin, end - begin);
}

/// Code point of a character of one or two bytes; what is longer or ill-formed is not common.
std::size_t commonCode(std::string_view character) {
    const auto first = static_cast<unsigned char>(character[0]);
    if (character.size() == 1 && first < 0x80U) return first;
    if (character.size() != 2 || (first & 0xE0U) != 0xC0U) return commonCharacters;
    return ((first & 0x1FU) << 6U) | (static_cast<unsigned char>(character[1]) & 0x3FU);
}

std::string_view withoutBlanksBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view withoutBlanksAfter(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Line ends and tabs that follow one another become one blank.
std::string onOneLine(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    bool control = false;
    for (const char byte : text) {
        const bool isControl = static_cast<unsigned char>(byte) < 0x20;
        if (!isControl || !control) line += isControl ? ' ' : byte;
        control = isControl;
    }
    return line;
}

}  // namespace

TextFit::TextFit(const FontMeasure& measure, const PrintFont& font)
    : measure_(measure), font_(font), common_(commonCharacters, -1) {}

int TextFit::characterWidth(std::string_view character) {
    const std::size_t code = commonCode(character);
    if (code < commonCharacters) {
        int& width = common_[code];
        if (width < 0) width = measure_.width(replacingInvalidBytes(character), font_);
        return width;
    }
    const auto [found, isNew] = others_.try_emplace(std::string(character), 0);
    if (isNew) found->second = measure_.width(replacingInvalidBytes(character), font_);
    return found->second;
}

int TextFit::width(std::string_view text) {
    int width = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view character = characterAt(text, at);
        width += characterWidth(character);
        at += character.size();
    }
    return width;
}

int TextFit::widestWord(std::string_view text, int limit) {
    int widest = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        if (const int word = width(text.substr(at, end - at)); word <= limit)
            widest = std::max(widest, word);
        at = end + 1;
    }
    return widest;
}

std::size_t TextFit::fitting(std::string_view text, int room) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::string_view character = characterAt(text, at);
        room -= characterWidth(character);
        if (room < 0) break;
        at += character.size();
    }
    return at;
}

std::string_view TextFit::takeLine(std::string_view& rest, int room) {
    std::size_t end = fitting(rest, room);
    if (end < rest.size() && rest[end] != ' ') {
        const std::size_t blank = rest.rfind(' ', end);
        if (blank != std::string_view::npos) end = blank;
    }
    const std::string_view line = rest.substr(0, end);
    rest = withoutBlanksBefore(rest.substr(end));
    return withoutBlanksAfter(line);
}

std::string TextFit::shortened(std::string_view text, int room) {
    const int left = room - characterWidth(ellipsis);
    if (left < 0) return "";
    return std::string(withoutBlanksAfter(text.substr(0, fitting(text, left)))) +
           std::string(ellipsis);
}

std::vector<std::string> TextFit::lines(std::string_view text, int room, std::size_t most) {
    // A byte that is no text must not keep the rest from being printed.
    const std::string whole = onOneLine(replacingInvalidBytes(text));
    std::string_view rest = withoutBlanksAfter(withoutBlanksBefore(whole));
    if (room < width(shortestLine)) most = 1;
    std::vector<std::string> lines;
    while (!rest.empty()) {
        if (fitting(rest, room) == rest.size()) {
            lines.emplace_back(rest);
            break;
        }
        std::string_view after = rest;
        const std::string_view line = takeLine(after, room);
        if (lines.size() + 1 >= most || line.empty()) {
            if (std::string last = shortened(rest, room); !last.empty())
                lines.push_back(std::move(last));
            break;
        }
        lines.emplace_back(line);
        rest = after;
    }
    return lines;
}

}  // namespace catalogador
