#include "form/grid/list_rows.h"

#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

std::int32_t codeOfRow(const RecordGrid& grid, int row, const Regional& regional) {
    return toLong(Variant(grid.code(row)), regional);
}

bool rowHasCode(const RecordGrid& grid, int row, std::int32_t code, const Regional& regional) {
    return equalValues(Variant(grid.code(row)), Variant(code), regional).value_or(false);
}

std::string selectedCode(const RecordGrid& grid) {
    return grid.row() >= RecordGrid::fixedRows ? grid.code(grid.row()) : "";
}

void selectCode(RecordGrid& grid, const std::string& code) {
    const int row = code.empty() ? 0 : grid.findCode(code);
    if (row == 0) return;
    grid.select(row, 0);
    if (!grid.rowIsShown(row)) grid.setTopRow(row);
}

void showFirstMatch(RecordGrid& grid) {
    if (grid.visibleRows() > 0) grid.setTopRow(grid.visibleRow(0));
}

std::string nameOfRow(const RecordGrid& grid, int row) {
    // A code as short as this says little without the text next to it.
    constexpr std::size_t shortText = 8;
    std::string name;
    for (int column = 0; column < grid.columns(); ++column) {
        const std::string_view text = trim(grid.text(row, column));
        if (text.empty() || grid.columnHidden(column) ||
            grid.check(row, column) != CheckState::none)
            continue;
        if (!name.empty()) return name + " · " + std::string(text);
        name = text;
        if (lengthInCharacters(name) > shortText) return name;
    }
    return name.empty() ? grid.code(row) : name;
}

}  // namespace catalogador
