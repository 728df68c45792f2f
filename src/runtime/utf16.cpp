#include "runtime/utf16.h"

#include "runtime/utf8.h"

namespace catalogador {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr char32_t firstOfPair = 0xD800;
constexpr char32_t secondOfPair = 0xDC00;
constexpr char32_t afterPairs = 0xE000;
constexpr char32_t firstInPairs = 0x10000;

}  // namespace

std::u16string utf16Of(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char32_t character = nextCharacter(text, at);
        if (character >= invalidByteBase) character = replacement;
        if (character < firstInPairs) {
            units += static_cast<char16_t>(character);
        } else {
            character -= firstInPairs;
            units += static_cast<char16_t>(firstOfPair + (character >> 10U));
            units += static_cast<char16_t>(secondOfPair + (character & 0x3FFU));
        }
    }
    return units;
}

std::string utf8Of(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        char32_t character = text[at];
        if (character >= firstOfPair && character < afterPairs) {
            const char32_t next = at + 1 < text.size() ? text[at + 1] : 0;
            const bool pair = character < secondOfPair && next >= secondOfPair && next < afterPairs;
            if (pair) {
                character =
                    firstInPairs + ((character - firstOfPair) << 10U) + (next - secondOfPair);
                ++at;
            } else {
                character = replacement;
            }
        }
        appendCharacter(bytes, character);
    }
    return bytes;
}

}  // namespace catalogador
