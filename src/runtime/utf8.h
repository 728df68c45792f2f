#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace catalogador {

/// Decodes the character at `at` and moves `at` past it. A byte that begins no valid UTF-8 sequence
/// is a character of its own, from invalidByteBase + its value, so that nothing is lost.
char32_t nextCharacter(std::string_view text, std::size_t& at);
/// Appends a character; those from invalidByteBase on become their byte again.
void appendCharacter(std::string& text, char32_t character);

/// The text with a replacement character for each byte that is no UTF-8.
std::string replacingInvalidBytes(std::string_view text);

constexpr char32_t invalidByteBase = 0x110000;

}  // namespace catalogador
