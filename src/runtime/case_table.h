#pragma once

namespace catalogador {

/// Upper case of one character of Latin, Greek or Cyrillic script; any other stays as it is, and so
/// does one whose upper case is more than one character.
char32_t upperCharacter(char32_t character);
/// The same for characters that compare equal without regard to case.
char32_t foldCharacter(char32_t character);

}  // namespace catalogador
