#include "runtime/text.h"

#include <algorithm>

#include "runtime/case_table.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

template <class Map>
std::string mapCharacters(std::string_view text, Map map) {
    std::string mapped;
    mapped.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if (byte < 0x80) {
            mapped += static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 32 : byte);
            ++at;
        } else {
            appendCharacter(mapped, map(nextCharacter(text, at)));
        }
    }
    return mapped;
}

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Length in bytes of what matches the folded text at the start of `text`, or npos.
std::size_t foldedPrefix(std::string_view text, std::string_view folded) {
    std::size_t at = 0;
    std::size_t wanted = 0;
    while (wanted < folded.size()) {
        if (at >= text.size() ||
            foldCharacter(nextCharacter(text, at)) != nextCharacter(folded, wanted))
            return std::string_view::npos;
    }
    return at;
}

/// `find` is folded already where case is not regarded.
FoundText findFrom(std::string_view text, std::string_view find, std::size_t from, Compare how) {
    if (how == Compare::binary) return {text.find(find, from), find.size()};
    for (std::size_t at = from; at <= text.size();) {
        const std::size_t length = foldedPrefix(text.substr(at), find);
        if (length != std::string_view::npos) return {at, length};
        if (at == text.size()) break;
        nextCharacter(text, at);
    }
    return {};
}

}  // namespace

std::string_view trim(std::string_view text) {
    while (text.ends_with(' ')) text.remove_suffix(1);
    while (text.starts_with(' ')) text.remove_prefix(1);
    return text;
}

std::string upperCase(std::string_view text) {
    return mapCharacters(text, upperCharacter);
}

std::string foldCase(std::string_view text) {
    return mapCharacters(text, foldCharacter);
}

int compareText(std::string_view left, std::string_view right, Compare how) {
    if (how == Compare::binary) return left.compare(right);
    return foldCase(left).compare(foldCase(right));
}

bool equalText(std::string_view left, std::string_view right) {
    return compareText(left, right, Compare::text) == 0;
}

FoundText findTextFrom(std::string_view text, std::string_view find, std::size_t from,
                       Compare how) {
    return findFrom(text, how == Compare::text ? foldCase(find) : std::string(find), from, how);
}

std::size_t findText(std::string_view text, std::string_view find, Compare how) {
    if (how == Compare::text && isAscii(find) && isAscii(text))
        return foldCase(text).find(foldCase(find));
    return findTextFrom(text, find, 0, how).position;
}

bool containsText(std::string_view text, std::string_view find, Compare how) {
    return findText(text, find, how) != std::string_view::npos;
}

std::string replaceText(std::string_view text, std::string_view find, std::string_view with,
                        Compare how) {
    if (find.empty()) return std::string(text);
    const std::string wanted = how == Compare::text ? foldCase(find) : std::string(find);
    std::string replaced;
    std::size_t from = 0;
    for (FoundText hit = findFrom(text, wanted, from, how); hit.position != std::string_view::npos;
         hit = findFrom(text, wanted, from, how)) {
        replaced.append(text.substr(from, hit.position - from)).append(with);
        from = hit.position + hit.length;
    }
    return replaced.append(text.substr(from));
}

std::vector<std::string> splitText(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    std::size_t from = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, from)) {
        pieces.emplace_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    pieces.emplace_back(text.substr(from));
    return pieces;
}

std::size_t lengthInCharacters(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count) nextCharacter(text, at);
    return count;
}

std::size_t characterOffset(std::string_view text, std::size_t index) {
    std::size_t at = 0;
    for (; index > 0 && at < text.size(); --index) nextCharacter(text, at);
    return at;
}

std::string_view leftCharacters(std::string_view text, std::size_t count) {
    return text.substr(0, characterOffset(text, count));
}

std::string decimalText(std::int64_t value) {
    return std::to_string(value);
}

std::string zeroPadded(std::int64_t value, int digits) {
    std::string text = std::to_string(value < 0 ? -value : value);
    if (text.size() < static_cast<std::size_t>(digits))
        text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
    return value < 0 ? "-" + text : text;
}

}  // namespace catalogador
