#pragma once
#include <memory>

#include "platform/controls/record_grid.h"

namespace catalogador::wx {

class GridView;

/// What a screen reader is told of the record grid: a table of the rows that the filter leaves and
/// the columns in use, their headers with the sort, and the selected row. Cells are made when they
/// are asked for, so that a list of a million rows costs nothing.
class GridAccessible {
  public:
    /// Both must outlive it.
    static std::unique_ptr<GridAccessible> of(GridView& view, RecordGrid& grid);
    virtual ~GridAccessible() = default;

    /// To be called after the grid changed or got the focus: tells the screen reader what is new.
    virtual void changed() = 0;
};

}  // namespace catalogador::wx
