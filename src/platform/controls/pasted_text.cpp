#include "platform/controls/pasted_text.h"

#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

bool endsLine(char32_t character) {
    constexpr char32_t nextLine = 0x85;
    constexpr char32_t lineSeparator = 0x2028;
    constexpr char32_t paragraphSeparator = 0x2029;
    return (character >= U'\n' && character <= U'\r') || character == nextLine ||
           character == lineSeparator || character == paragraphSeparator;
}

bool isControl(char32_t character) {
    constexpr char32_t lastControl = 0x9F;
    constexpr char32_t deleteCharacter = 0x7F;
    return character < U' ' || (character >= deleteCharacter && character <= lastControl);
}

}  // namespace

std::string pastedText(std::string_view text) {
    std::string line;
    for (std::size_t at = 0; at < text.size();) {
        if (text.substr(at).starts_with("\r\n")) ++at;
        const char32_t character = nextCharacter(text, at);
        if (character == U'\t' || endsLine(character))
            line += ' ';
        else if (!isControl(character))
            appendCharacter(line, character);
    }
    return std::string(trim(line));
}

FittedText fittedText(std::string_view text, std::size_t room) {
    const std::string_view fitting = leftCharacters(text, room);
    return {std::string(fitting), fitting.size() < text.size()};
}

}  // namespace catalogador
