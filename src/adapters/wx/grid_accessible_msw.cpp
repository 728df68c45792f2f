#include "adapters/wx/grid_accessible.h"
#include "adapters/wx/table_accessible_msw.h"

namespace catalogador::wx {

namespace {

class MswGridAccessible : public GridAccessible {
  public:
    MswGridAccessible(GridView& view, RecordGrid& grid) : view_(view), table_(grid) {
        // The window owns it.
        view.SetAccessible(new TableAccessible(view, table_));
    }

    void changed() override {
        const int rows = table_.rows();
        const int columns = table_.columns();
        if (rows != rows_ || columns != columns_) tell(wxACC_EVENT_OBJECT_REORDER, wxACC_SELF);
        rows_ = rows;
        columns_ = columns;
        tellSelection();
    }

  private:
    /// The row is what readers read, so its texts count as much as which one it is.
    void tellSelection() {
        const int row = table_.selectedRow();
        const bool focused = table_.grid().hasFocus();
        const std::string text = row < 0 || columns_ == 0 ? std::string() : table_.text(row, 0);
        if (row == row_ && text == text_ && focused == focused_) return;
        const bool moved = row != row_ || text != text_;
        row_ = row;
        text_ = text;
        focused_ = focused;
        const int child = row < 0 ? wxACC_SELF : TableAccessible::childOf(row);
        if (moved) tell(wxACC_EVENT_OBJECT_SELECTION, child);
        if (focused) tell(wxACC_EVENT_OBJECT_FOCUS, child);
    }

    void tell(int event, int child) {
        wxAccessible::NotifyEvent(event, &view_, wxOBJID_CLIENT, child);
    }

    GridView& view_;
    GridTable table_;
    int rows_ = -1;
    int columns_ = -1;
    int row_ = -1;
    std::string text_;
    bool focused_ = false;
};

}  // namespace

std::unique_ptr<GridAccessible> GridAccessible::of(GridView& view, RecordGrid& grid) {
    return std::make_unique<MswGridAccessible>(view, grid);
}

}  // namespace catalogador::wx
