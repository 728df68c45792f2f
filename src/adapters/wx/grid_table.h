#pragma once
#include <string>
#include <vector>

#include "platform/controls/record_grid.h"

namespace catalogador::wx {

/// The record grid as the table that a user sees: visible rows and columns, counted from 0.
class GridTable {
  public:
    explicit GridTable(RecordGrid& grid) : grid_(&grid) {}

    [[nodiscard]] int rows() const { return grid_->visibleRows(); }
    [[nodiscard]] int columns() const { return static_cast<int>(shownColumns().size()); }
    [[nodiscard]] bool has(int row, int column) const {
        return row >= 0 && row < rows() && column >= 0 && column < columns();
    }

    [[nodiscard]] std::string header(int column) const;
    /// "ascending", "descending" or "none".
    [[nodiscard]] const char* sortOf(int column) const;
    [[nodiscard]] std::string text(int row, int column) const;
    [[nodiscard]] CheckState check(int row, int column) const;

    /// -1 when the selected row is hidden or none is selected.
    [[nodiscard]] int selectedRow() const { return grid_->visibleIndex(grid_->row()); }
    /// Selects a row as a click on it would.
    void select(int row) { grid_->userClicked(MouseButton::left, grid_->visibleRow(row), 0); }

    [[nodiscard]] RecordGrid& grid() const { return *grid_; }
    /// The grid column that a column of the table is.
    [[nodiscard]] int gridColumn(int column) const {
        return shownColumns()[static_cast<std::size_t>(column)];
    }
    /// The column of the table that a grid column is, -1 for one that is none.
    [[nodiscard]] int columnOf(int gridColumn) const;

  private:
    /// Grid columns in sight; the narrow last one has no data and is none for a reader.
    [[nodiscard]] std::vector<int> shownColumns() const;

    RecordGrid* grid_;
};

}  // namespace catalogador::wx
