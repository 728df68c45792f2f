#include "platform/controls/record_grid.h"

namespace catalogador {

int RecordGrid::columnOfLetters() const {
    if (sortColumn_ >= 0 && sortColumn_ < columns() && !columnHidden(sortColumn_))
        return sortColumn_;
    for (int column = 0; column < columns(); ++column)
        if (!columnHidden(column)) return column;
    return -1;
}

void RecordGrid::defaultCharacter(char32_t character) {
    const int column = columnOfLetters();
    if (column < 0 || character == U' ') return;
    const int current = row_ >= fixedRows ? visibleIndex(row_) : -1;
    const int found =
        typeAhead_.type(character, current, visibleRows(),
                        [&](int n) -> std::string_view { return text(visibleRow(n), column); });
    if (found < 0) return;
    const int row = visibleRow(found);
    bringIntoSight(row);
    select(row, column_);
}

std::string RecordGrid::cellText(int row, int column) const {
    const CheckState state = row < fixedRows ? CheckState::none : check(row, column);
    if (state != CheckState::none) return state == CheckState::checked ? "1" : "0";
    return std::string(text(row, column));
}

std::string RecordGrid::rowText(int row) const {
    std::string line;
    bool first = true;
    for (int column = 0; column < listColumns(); ++column) {
        if (columnHidden(column)) continue;
        line += (first ? "" : "\t") + cellText(row, column);
        first = false;
    }
    return line;
}

}  // namespace catalogador
