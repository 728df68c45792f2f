#pragma once
#include <string>

#include "adapters/system/replaced_file.h"
#include "platform/controls/record_grid.h"
#include "platform/grid_files.h"

namespace catalogador::exporting {

/// Writes the rows shown as a workbook (.xlsx) of one sheet: the header styled, frozen and with a
/// filter, columns as wide as on the screen. A column that holds nothing but numbers holds numbers,
/// one of check boxes TRUE and FALSE, any other texts as they stand; no cell becomes a formula.
/// Needs the same memory for any number of rows. Raises RuntimeError, which calls the file by its
/// `target`, for more rows than a sheet has, a text longer than a cell holds (32,767 UTF-16 units)
/// or one that no workbook can hold, since nothing is cut silently.
void writeWorkbook(const RecordGrid& grid, const system::ReplacedFile& file,
                   const std::string& target, const GridFileOptions& options);

}  // namespace catalogador::exporting
