#include "runtime/utf8.h"

namespace catalogador {

namespace {

struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t smallest;
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80) return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte < 0xF5) return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

}  // namespace

char32_t nextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const Lead lead = leadOf(byte);
    char32_t character = lead.bits;
    bool valid = lead.length > 0 && at + lead.length <= text.size();
    for (std::size_t i = 1; valid && i < lead.length; ++i) {
        const auto next = static_cast<unsigned char>(text[at + i]);
        valid = (next & 0xC0U) == 0x80U;
        character = (character << 6U) | (next & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (!valid || character < lead.smallest || character >= invalidByteBase || surrogate) {
        ++at;
        return invalidByteBase + byte;
    }
    at += lead.length;
    return character;
}

void appendCharacter(std::string& text, char32_t character) {
    const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (character >= invalidByteBase) {
        put(character - invalidByteBase);
    } else if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    } else {
        put(0xF0U | (character >> 18U));
        put(0x80U | ((character >> 12U) & 0x3FU));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    }
}

std::string replacingInvalidBytes(std::string_view text) {
    constexpr char32_t replacement = 0xFFFD;
    std::string replaced;
    replaced.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCharacter(text, at);
        appendCharacter(replaced, character >= invalidByteBase ? replacement : character);
    }
    return replaced;
}

}  // namespace catalogador
