#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace catalogador {

/// How two texts are compared: by their bytes, or without regard to case.
enum class Compare { binary, text };

/// The text without the blanks (U+0020 only) at both ends; tabs and line ends stay.
std::string_view trim(std::string_view text);

/// Upper case for Latin (with accents), Greek and Cyrillic, whatever the process locale; characters
/// whose upper case is longer ("ß") stay as they are. Bytes that are no UTF-8 are kept.
std::string upperCase(std::string_view text);
/// The fold that case-blind comparison uses: equal texts but for case fold to the same bytes.
std::string foldCase(std::string_view text);

/// < 0, 0 or > 0.
int compareText(std::string_view left, std::string_view right, Compare how);
bool equalText(std::string_view left, std::string_view right);

/// Position in bytes of `find` in `text`, or npos. An empty `find` is found at 0.
std::size_t findText(std::string_view text, std::string_view find, Compare how);
/// Where a text was found, in bytes; position npos when it was not. The length may differ from that
/// of the text sought when case is not regarded.
struct FoundText {
    std::size_t position = std::string_view::npos;
    std::size_t length = 0;
};
/// The first `find` at or after the byte `from`.
FoundText findTextFrom(std::string_view text, std::string_view find, std::size_t from, Compare how);
bool containsText(std::string_view text, std::string_view find, Compare how);

/// Every occurrence of `find`, from left to right, replaced; what was put in is not searched again.
/// An empty `find` changes nothing.
std::string replaceText(std::string_view text, std::string_view find, std::string_view with,
                        Compare how);

/// The pieces between separators. An empty text has no piece at all.
std::vector<std::string> splitText(std::string_view text, std::string_view separator);

/// Number of characters (code points), not bytes.
std::size_t lengthInCharacters(std::string_view text);
/// The first `count` characters, or all of them when there are fewer.
std::string_view leftCharacters(std::string_view text, std::size_t count);
/// Byte position of the character number `index` (from 0); the size of the text past its end.
std::size_t characterOffset(std::string_view text, std::size_t index);

/// The text of an integer in decimal.
std::string decimalText(std::int64_t value);
/// Decimal with at least `digits` digits, padded with zeros on the left (34, 3 -> "034").
std::string zeroPadded(std::int64_t value, int digits);

}  // namespace catalogador
