#include "platform/printing/text_fit.h"

#include <algorithm>

#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::size_t mostRemembered = 65536;
constexpr std::string_view ellipsis = "…";

bool startsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// The last place at or before `end` where a character begins.
std::size_t characterAt(std::string_view text, std::size_t end) {
    while (end > 0 && end < text.size() && !startsCharacter(text[end])) --end;
    return end;
}

std::size_t afterFirstCharacter(std::string_view text) {
    std::size_t end = std::min<std::size_t>(1, text.size());
    while (end < text.size() && !startsCharacter(text[end])) ++end;
    return end;
}

std::string onOneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char byte) { return static_cast<unsigned char>(byte) < 0x20; }, ' ');
    return line;
}

}  // namespace

TextFit::TextFit(const FontMeasure& measure, const PrintFont& font)
    : measure_(measure), font_(font), widest_(measure.width("W", font)) {}

int TextFit::width(std::string_view text) {
    if (known_.size() >= mostRemembered) known_.clear();
    const auto [found, isNew] = known_.try_emplace(std::string(text), 0);
    if (isNew) found->second = measure_.width(text, font_);
    return found->second;
}

std::size_t TextFit::fitting(std::string_view text, int room) {
    std::size_t fits = afterFirstCharacter(text);
    std::size_t beyond = text.size();
    if (measure_.width(text, font_) <= room) return beyond;
    // Between the first character and the whole text, by halves.
    while (true) {
        const std::size_t middle = characterAt(text, fits + (beyond - fits) / 2);
        if (middle <= fits) break;
        if (measure_.width(text.substr(0, middle), font_) <= room)
            fits = middle;
        else
            beyond = middle;
    }
    const std::size_t next = fits + afterFirstCharacter(text.substr(fits));
    const bool oneMore = next < text.size() && measure_.width(text.substr(0, next), font_) <= room;
    return oneMore ? next : fits;
}

std::string TextFit::shortened(std::string_view text, int room) {
    const int left = std::max(0, room - measure_.width(ellipsis, font_));
    std::string_view kept = text.substr(0, fitting(text, left));
    while (kept.ends_with(' ')) kept.remove_suffix(1);
    return std::string(kept) + std::string(ellipsis);
}

std::vector<std::string> TextFit::lines(std::string_view text, int room, std::size_t most) {
    if (text.empty()) return {};
    const std::string whole = onOneLine(text);
    const auto surely = static_cast<long>(lengthInCharacters(whole)) * widest_;
    if (surely <= room || width(whole) <= room) return {whole};
    std::vector<std::string> lines;
    std::string_view rest = whole;
    while (!rest.empty()) {
        if (lines.size() + 1 == most && measure_.width(rest, font_) > room) {
            lines.push_back(shortened(rest, room));
            break;
        }
        std::size_t end = fitting(rest, room);
        if (end < rest.size() && rest[end] != ' ')
            if (const std::size_t blank = rest.rfind(' ', end);
                blank != std::string_view::npos && blank > 0)
                end = blank;
        lines.emplace_back(rest.substr(0, end));
        rest.remove_prefix(end);
        while (rest.starts_with(' ')) rest.remove_prefix(1);
    }
    return lines;
}

}  // namespace catalogador
