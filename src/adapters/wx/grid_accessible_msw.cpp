#include <wx/access.h>
#include <wx/window.h>

#include "adapters/wx/appearance.h"
#include "adapters/wx/grid_accessible.h"
#include "adapters/wx/grid_table.h"
#include "platform/controls/window.h"

namespace catalogador::wx {

namespace {

/// The list with its rows as children, numbered from 1. A row's name is the texts of its cells with
/// their headers.
class RowsAccessible : public wxAccessible {
  public:
    RowsAccessible(wxWindow* window, GridTable& table) : wxAccessible(window), table_(table) {}

    wxAccStatus GetChildCount(int* count) override {
        *count = table_.rows();
        return wxACC_OK;
    }
    wxAccStatus GetChild(int /*number*/, wxAccessible** child) override {
        *child = nullptr;
        return wxACC_OK;
    }
    wxAccStatus GetName(int number, wxString* name) override {
        *name = number == 0 ? wxText(table_.grid().window()->caption()) : rowName(number - 1);
        return wxACC_OK;
    }
    wxAccStatus GetRole(int number, wxAccRole* role) override {
        *role = number == 0 ? wxROLE_SYSTEM_LIST : wxROLE_SYSTEM_LISTITEM;
        return wxACC_OK;
    }
    wxAccStatus GetState(int number, long* state) override {
        *state = wxACC_STATE_SYSTEM_FOCUSABLE;
        const bool focused = table_.grid().hasFocus();
        if (number == 0) {
            if (focused) *state |= wxACC_STATE_SYSTEM_FOCUSED;
            return wxACC_OK;
        }
        *state |= wxACC_STATE_SYSTEM_SELECTABLE;
        if (number - 1 != table_.selectedRow()) return wxACC_OK;
        *state |= wxACC_STATE_SYSTEM_SELECTED;
        if (focused) *state |= wxACC_STATE_SYSTEM_FOCUSED;
        return wxACC_OK;
    }
    wxAccStatus GetFocus(int* number, wxAccessible** child) override {
        *child = nullptr;
        *number = table_.selectedRow() + 1;
        return table_.grid().hasFocus() ? wxACC_OK : wxACC_FALSE;
    }
    wxAccStatus Select(int number, wxAccSelectionFlags /*how*/) override {
        if (!table_.has(number - 1, 0)) return wxACC_INVALID_ARG;
        table_.select(number - 1);
        return wxACC_OK;
    }

  private:
    [[nodiscard]] wxString rowName(int row) const {
        wxString name;
        for (int column = 0; column < table_.columns() && table_.has(row, column); ++column) {
            const std::string text = table_.text(row, column);
            if (text.empty()) continue;
            if (!name.empty()) name += "; ";
            name += wxText(table_.header(column)) + " " + wxText(text);
        }
        return name;
    }

    GridTable& table_;
};

class MswGridAccessible : public GridAccessible {
  public:
    MswGridAccessible(wxWindow& window, RecordGrid& grid) : window_(window), table_(grid) {
        // The window owns it.
        window.SetAccessible(new RowsAccessible(&window, table_));
    }

    void changed() override {
        const int row = table_.selectedRow();
        const int rows = table_.rows();
        const bool focused = table_.grid().hasFocus();
        if (row == row_ && rows == rows_ && focused == focused_) return;
        row_ = row;
        rows_ = rows;
        focused_ = focused;
        tell(wxACC_EVENT_OBJECT_SELECTION);
        if (focused) tell(wxACC_EVENT_OBJECT_FOCUS);
    }

  private:
    void tell(int event) { wxAccessible::NotifyEvent(event, &window_, wxOBJID_CLIENT, row_ + 1); }

    wxWindow& window_;
    GridTable table_;
    int row_ = -1;
    int rows_ = -1;
    bool focused_ = false;
};

}  // namespace

std::unique_ptr<GridAccessible> GridAccessible::of(wxWindow& window, RecordGrid& grid) {
    return std::make_unique<MswGridAccessible>(window, grid);
}

}  // namespace catalogador::wx
