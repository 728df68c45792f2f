#include "runtime/fold_texts.h"

#include <cstddef>
#include <string>

#include "runtime/case_table.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

using Byte = unsigned char;

constexpr Byte latinLead = 0xC3;
constexpr Byte divisionSign = 0xB7;
constexpr int caseDistance = 0x20;

/// ASCII and the letters of U+00E0 to U+00FE, which differ from their capitals in one bit. Gives
/// something other than 0 when there are characters of other kinds. Without branches, so that the
/// compiler makes it work on many bytes at a time.
Byte upperLatin(const Byte* text, std::size_t size, Byte* upper) {
    Byte others = 0;
    for (std::size_t i = 1; i < size; ++i) {
        const Byte byte = text[i];
        const Byte afterLead = static_cast<Byte>(text[i - 1] == latinLead);
        const Byte ascii = static_cast<Byte>(static_cast<Byte>(byte - 'a') < 26);
        const Byte accented = static_cast<Byte>(
            afterLead & (static_cast<Byte>(byte - 0xA0) < 0x1F) & (byte != divisionSign));
        upper[i] = static_cast<Byte>(byte - (ascii | accented) * caseDistance);
        others |= static_cast<Byte>(((byte >= 0xC2) & (byte != latinLead)) |
                                    (afterLead & (byte == 0xBF)));
    }
    return others;
}

/// Whether there may be letters that upperLatin leaves alone: signs as in "Nº 5 (€)" are none.
Byte hasOtherLetters(const Byte* text, std::size_t size) {
    Byte letters = 0;
    for (std::size_t i = 1; i < size; ++i) {
        const Byte byte = text[i];
        const Byte before = text[i - 1];
        letters |= static_cast<Byte>(
            (static_cast<Byte>(byte - 0xC4) < 0x1E) | ((before == 0xC2) & (byte == 0xB5)) |
            ((before == latinLead) & (byte == 0xBF)) | ((before == 0xE2) & (byte == 0xB1)));
    }
    return letters;
}

/// The characters that upperLatin leaves alone.
bool upperOthers(std::string_view text, char* upper) {
    std::string capital;
    for (std::size_t at = 0; at < text.size();) {
        const auto byte = static_cast<Byte>(text[at]);
        if (byte < 0xC2) {
            ++at;
            continue;
        }
        const std::size_t from = at;
        const char32_t character = nextCharacter(text, at);
        const char32_t changed = upperCharacter(character);
        if (changed == character) continue;
        capital.clear();
        appendCharacter(capital, changed);
        if (capital.size() != at - from) return false;
        capital.copy(upper + from, capital.size());
    }
    return true;
}

}  // namespace

bool upperCaseOfSameLength(std::string_view text, char* upper) {
    if (text.empty()) return true;
    const auto* bytes = reinterpret_cast<const Byte*>(text.data());
    const Byte first = bytes[0];
    upper[0] = static_cast<char>(first - (static_cast<Byte>(first - 'a') < 26 ? caseDistance : 0));
    const Byte others = upperLatin(bytes, text.size(), reinterpret_cast<Byte*>(upper));
    const bool beginsOtherwise = first >= 0xC2 && first != latinLead;
    if (others == 0 && !beginsOtherwise) return true;
    const bool beginsWithLetter = first >= 0xC4 && first <= 0xE1;
    if (!beginsWithLetter && hasOtherLetters(bytes, text.size()) == 0) return true;
    return upperOthers(text, upper);
}

}  // namespace catalogador
