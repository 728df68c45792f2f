#pragma once
#include <optional>
#include <string_view>
#include <vector>

#include "platform/controls/record_grid.h"
#include "platform/grid_files.h"
#include "runtime/regional.h"

namespace catalogador::exporting {

/// Numbers of the columns that are not hidden.
std::vector<int> shownColumns(const RecordGrid& grid);

/// The value of a text that is nothing but a number: no blanks, no exponent, no leading zeros, no
/// negative zero, at most 15 digits, since a workbook would change more.
std::optional<double> plainNumber(std::string_view text, const Regional& regional);

/// What a column holds throughout.
struct ColumnKind {
    enum class Kind { text, number, boolean };
    Kind kind = Kind::text;
    /// Digits after the decimal point, at most, of a number column.
    int decimals = 0;
    /// Alignment code of the cells.
    int alignment = 0;
};
ColumnKind kindOfColumn(const RecordGrid& grid, int column, const Regional& regional);

/// Tells every few thousand rows how far an export is; raises RuntimeError when it is to stop.
void tellProgress(const GridFileOptions& options, int done, int total);

}  // namespace catalogador::exporting
