#pragma once
#include <cstdint>
#include <string>

#include "platform/controls/record_grid.h"
#include "runtime/regional.h"

namespace catalogador {

/// What the procedures of the form ask of the rows of the list, each of which has the code of its
/// record. Row numbers are those of RecordGrid.

/// Width of the narrow last column of the list, which no listing fills, in twips.
constexpr int extraColumnWidth = 90;

[[nodiscard]] inline bool hasDataRows(const RecordGrid& grid) {
    return grid.rows() > RecordGrid::fixedRows;
}

/// Raises RuntimeError for a code that is no number.
std::int32_t codeOfRow(const RecordGrid& grid, int row, const Regional& regional);
/// Whether that is the row's code, however the listing writes it.
bool rowHasCode(const RecordGrid& grid, int row, std::int32_t code, const Regional& regional);

/// The code of the selected row, empty when that is none of a record.
std::string selectedCode(const RecordGrid& grid);
/// Selects the row of that code, if there is one, and brings it into sight.
void selectCode(RecordGrid& grid, const std::string& code);

/// The first row that the filter lets through becomes the first one shown.
void showFirstMatch(RecordGrid& grid);

/// What the user sees of a row that tells it from the others.
std::string nameOfRow(const RecordGrid& grid, int row);

}  // namespace catalogador
