#pragma once
#include <string>

#include "adapters/files/replaced_file.h"
#include "platform/controls/record_grid.h"
#include "platform/grid_files.h"

namespace catalogador {

/// The title as a sheet may be called: none of the characters []:*?/\, no apostrophe at an end, 31
/// UTF-16 units at most; "1" where nothing is left.
std::string sheetName(const std::string& title);

/// Writes the rows shown as a workbook (.xlsx) of one sheet: the header styled, frozen and with a
/// filter, columns as wide as on the screen. A column that holds nothing but numbers holds numbers,
/// one of check boxes TRUE and FALSE, any other texts as they stand; no cell becomes a formula.
/// Needs the same memory for any number of rows.
void writeWorkbook(const RecordGrid& grid, const ReplacedFile& file,
                   const GridFileOptions& options);

}  // namespace catalogador
