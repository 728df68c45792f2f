#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace catalogador::exporting {

/// How long a text is for a spreadsheet program: UTF-16 units, not characters.
std::size_t utf16Units(std::string_view text);

/// Whether a workbook can hold the text: it is UTF-8 throughout, without U+0000, U+FFFE and U+FFFF.
/// A single text that is not like that makes the whole workbook unreadable.
bool workbookHolds(std::string_view text);

/// The text so that a spreadsheet program reads it as it stands: "_x0041_" in a workbook would be
/// read as "A".
std::string workbookText(std::string_view text);

/// The title as a sheet may be called: none of the characters []:*?/\ and no control character, no
/// apostrophe at an end, 31 UTF-16 units at most; "1" where nothing is left.
std::string sheetName(const std::string& title);

}  // namespace catalogador::exporting
