#pragma once
#include "adapters/wx/grid_table.h"
#include "adapters/wx/own_accessible_gtk.h"

namespace catalogador::wx {

class GridView;

/// The table as the desktop's interface for screen readers knows it.
struct TableObject {
    GtkWidgetAccessible parent;
    /// Both are null once the window is gone.
    GridTable* table;
    const GridView* view;
};

/// Null when the window is gone.
inline GridTable* gridOf(gpointer table) {
    return reinterpret_cast<TableObject*>(table)->table;
}

/// Stands for the row of the headers.
constexpr int headerRow = -1;

/// A cell of the table or, in headerRow, the header of a column. The caller owns it; it may outlive
/// the table.
AtkObject* newAccessibleCell(gpointer table, int row, int column);

}  // namespace catalogador::wx
