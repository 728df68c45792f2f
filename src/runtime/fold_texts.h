#pragma once
#include <string_view>

namespace catalogador {

/// Writes a text in upper case to `upper`, which has room for as many bytes. False when a character
/// has an upper case of another length; what was written is then of no use. Made for large pieces
/// of text: only scripts beyond Western European are looked at character by character.
bool upperCaseOfSameLength(std::string_view text, char* upper);

}  // namespace catalogador
