#pragma once
#include "adapters/system/replaced_file.h"
#include "platform/controls/record_grid.h"
#include "platform/grid_files.h"

namespace catalogador::exporting {

/// Writes the rows shown as text: UTF-8 with a byte-order mark, a tab between cells, CRLF after
/// each row, check boxes as TRUE and FALSE. Tabs and line breaks inside a cell become one blank;
/// nothing else of a cell is changed.
void writeTabText(const RecordGrid& grid, const system::ReplacedFile& file,
                  const GridFileOptions& options);

}  // namespace catalogador::exporting
