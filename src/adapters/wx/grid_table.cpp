#include "adapters/wx/grid_table.h"

#include <algorithm>

namespace catalogador::wx {

std::vector<int> GridTable::shownColumns() const {
    std::vector<int> shown;
    for (int column = 0; column < grid_->columns() - 1; ++column)
        if (!grid_->columnHidden(column)) shown.push_back(column);
    return shown;
}

int GridTable::columnOf(int gridColumn) const {
    const std::vector<int> shown = shownColumns();
    const auto found = std::find(shown.begin(), shown.end(), gridColumn);
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

std::string GridTable::header(int column) const {
    return grid_->header(gridColumn(column));
}

const char* GridTable::sortOf(int column) const {
    if (grid_->sortColumn() != gridColumn(column)) return "none";
    switch (grid_->sortOrder()) {
        case sort_order::ascending:
            return "ascending";
        case sort_order::descending:
            return "descending";
        default:
            return "none";
    }
}

std::string GridTable::text(int row, int column) const {
    return std::string(grid_->text(grid_->visibleRow(row), gridColumn(column)));
}

CheckState GridTable::check(int row, int column) const {
    return grid_->check(grid_->visibleRow(row), gridColumn(column));
}

}  // namespace catalogador::wx
