#include "adapters/wx/table_accessible_msw.h"

#include <wx/app.h>
#include <wx/variant.h>

#include <string_view>

#include "adapters/wx/appearance.h"
#include "adapters/wx/window_texts.h"
#include "platform/controls/window.h"

namespace catalogador::wx {

namespace {

/// Rows and cells whose objects are kept. A screen reader holds few of them at a time.
constexpr std::size_t keptParts = 1000;

wxString sortText(std::string_view sort) {
    if (sort == "none") return {};
    return wxText(
        windowText(sort == "ascending" ? message::sortedAscending : message::sortedDescending));
}

/// The row that a step leads to from a row, which is the same for a step to the side.
int rowAfter(wxNavDir direction, int row, bool wholeRows) {
    const bool inOrder = wholeRows;
    if (direction == wxNAVDIR_DOWN || (inOrder && direction == wxNAVDIR_NEXT)) return row + 1;
    if (direction == wxNAVDIR_UP || (inOrder && direction == wxNAVDIR_PREVIOUS)) return row - 1;
    return row;
}

int columnAfter(wxNavDir direction, int column) {
    if (direction == wxNAVDIR_RIGHT || direction == wxNAVDIR_NEXT) return column + 1;
    if (direction == wxNAVDIR_LEFT || direction == wxNAVDIR_PREVIOUS) return column - 1;
    return column;
}

}  // namespace

TableAccessible::TableAccessible(GridView& view, GridTable& table)
    : wxAccessible(&view), view_(view), table_(table) {}

TableAccessible::~TableAccessible() = default;

bool TableAccessible::has(int row, int column) const {
    return row >= headerRow && row < table_.rows() && column >= wholeRow &&
           column < table_.columns();
}

TablePart* TableAccessible::part(int row, int column) {
    if (!has(row, column)) return nullptr;
    auto& known = parts_[{row, column}];
    if (known == nullptr) {
        known = std::make_unique<TablePart>(*this, row, column);
        order_.emplace_back(row, column);
        // Not at once: the part that asks may be the oldest one.
        if (order_.size() == keptParts + 1) view_.CallAfter([this] { forgetOldParts(); });
    }
    return known.get();
}

void TableAccessible::forgetOldParts() {
    for (; order_.size() > keptParts; order_.pop_front()) parts_.erase(order_.front());
}

wxAccStatus TableAccessible::GetChildCount(int* count) {
    *count = table_.rows() + 1;
    return wxACC_OK;
}

wxAccStatus TableAccessible::GetChild(int number, wxAccessible** child) {
    *child = part(number - childOf(0), wholeRow);
    return *child == nullptr ? wxACC_INVALID_ARG : wxACC_OK;
}

wxAccStatus TableAccessible::GetName(int number, wxString* name) {
    if (number != 0) return wxACC_NOT_IMPLEMENTED;
    *name = wxText(table_.grid().window()->caption());
    return wxACC_OK;
}

wxAccStatus TableAccessible::GetRole(int number, wxAccRole* role) {
    if (number != 0) return wxACC_NOT_IMPLEMENTED;
    *role = wxROLE_SYSTEM_TABLE;
    return wxACC_OK;
}

wxAccStatus TableAccessible::GetState(int number, long* state) {
    if (number != 0) return wxACC_NOT_IMPLEMENTED;
    const RecordGrid& grid = table_.grid();
    *state = grid.enabled() ? wxACC_STATE_SYSTEM_FOCUSABLE : wxACC_STATE_SYSTEM_UNAVAILABLE;
    if (grid.hasFocus()) *state |= wxACC_STATE_SYSTEM_FOCUSED;
    return wxACC_OK;
}

wxAccStatus TableAccessible::GetFocus(int* number, wxAccessible** child) {
    *child = nullptr;
    *number = 0;
    if (!table_.grid().hasFocus()) return wxACC_OK;
    if (table_.selectedRow() < 0)
        *child = this;
    else
        *number = childOf(table_.selectedRow());
    return wxACC_OK;
}

wxAccStatus TableAccessible::GetSelections(wxVariant* selections) {
    selections->MakeNull();
    if (table_.selectedRow() >= 0) *selections = static_cast<long>(childOf(table_.selectedRow()));
    return wxACC_OK;
}

wxAccStatus TableAccessible::Navigate(wxNavDir direction, int from, int* to, wxAccessible** found) {
    *to = 0;
    if (from > 0)
        *found = part(rowAfter(direction, from - childOf(0), true), wholeRow);
    else if (direction == wxNAVDIR_FIRSTCHILD)
        *found = part(headerRow, wholeRow);
    else if (direction == wxNAVDIR_LASTCHILD)
        *found = part(table_.rows() - 1, wholeRow);
    else
        return wxACC_NOT_IMPLEMENTED;
    return *found == nullptr ? wxACC_FALSE : wxACC_OK;
}

wxAccStatus TableAccessible::HitTest(const wxPoint& point, int* number, wxAccessible** child) {
    *number = 0;
    *child = nullptr;
    const auto [row, column] = view_.cellAt(view_.ScreenToClient(point));
    if (!view_.GetScreenRect().Contains(point)) return wxACC_FALSE;
    const int visible = row == 0 ? headerRow : table_.grid().visibleIndex(row);
    if (row >= 0) *child = part(visible, table_.columnOf(column));
    if (*child == nullptr) *child = this;
    return wxACC_OK;
}

wxAccStatus TablePart::GetChildCount(int* count) {
    *count = isWholeRow() && exists() ? table().columns() : 0;
    return wxACC_OK;
}

wxAccStatus TablePart::GetChild(int number, wxAccessible** child) {
    *child = isWholeRow() ? owner_.part(row_, number - 1) : nullptr;
    return *child == nullptr ? wxACC_INVALID_ARG : wxACC_OK;
}

wxAccStatus TablePart::GetParent(wxAccessible** parent) {
    *parent = isWholeRow() ? static_cast<wxAccessible*>(&owner_) : owner_.part(row_, wholeRow);
    return *parent == nullptr ? wxACC_FAIL : wxACC_OK;
}

wxAccStatus TablePart::GetName(int number, wxString* name) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    if (!exists()) return wxACC_FAIL;
    if (isWholeRow())
        *name = rowName();
    else
        *name = wxText(row_ == headerRow ? table().header(column_) : table().text(row_, column_));
    return wxACC_OK;
}

/// All that a row says: a screen reader reads it when the row is selected.
wxString TablePart::rowName() const {
    wxString name;
    for (int column = 0; column < table().columns(); ++column) {
        const wxString header = wxText(table().header(column));
        const wxString text = row_ == headerRow ? wxString() : wxText(table().text(row_, column));
        if (row_ != headerRow && text.empty()) continue;
        if (!name.empty()) name += "; ";
        name += text.empty() ? header : header + " " + text;
    }
    return name;
}

wxAccStatus TablePart::GetDescription(int number, wxString* description) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    if (!exists()) return wxACC_FAIL;
    if (isWholeRow()) return wxACC_OK;
    *description =
        row_ == headerRow ? sortText(table().sortOf(column_)) : wxText(table().header(column_));
    return wxACC_OK;
}

wxAccStatus TablePart::GetRole(int number, wxAccRole* role) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    *role = wxROLE_SYSTEM_CELL;
    if (row_ == headerRow) *role = wxROLE_SYSTEM_COLUMNHEADER;
    if (isWholeRow()) *role = wxROLE_SYSTEM_ROW;
    return wxACC_OK;
}

wxAccStatus TablePart::GetState(int number, long* state) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    if (!exists()) return wxACC_FAIL;
    const RecordGrid& grid = table().grid();
    *state = wxACC_STATE_SYSTEM_READONLY;
    if (!grid.enabled()) *state |= wxACC_STATE_SYSTEM_UNAVAILABLE;
    if (place().IsEmpty()) *state |= wxACC_STATE_SYSTEM_OFFSCREEN | wxACC_STATE_SYSTEM_INVISIBLE;
    if (row_ == headerRow) return wxACC_OK;
    *state |= wxACC_STATE_SYSTEM_SELECTABLE;
    if (isWholeRow()) *state |= wxACC_STATE_SYSTEM_FOCUSABLE;
    if (row_ == table().selectedRow()) {
        *state |= wxACC_STATE_SYSTEM_SELECTED;
        if (isWholeRow() && grid.hasFocus()) *state |= wxACC_STATE_SYSTEM_FOCUSED;
    }
    if (!isWholeRow() && table().check(row_, column_) == CheckState::checked)
        *state |= wxACC_STATE_SYSTEM_CHECKED;
    return wxACC_OK;
}

wxRect TablePart::place() const {
    const int row = row_ == headerRow ? 0 : table().grid().visibleRow(row_);
    return owner_.view().cellOnScreen(row, isWholeRow() ? -1 : table().gridColumn(column_));
}

wxAccStatus TablePart::GetLocation(wxRect& place, int number) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    if (!exists()) return wxACC_FAIL;
    place = this->place();
    return place.IsEmpty() ? wxACC_FALSE : wxACC_OK;
}

wxAccStatus TablePart::Navigate(wxNavDir direction, int from, int* to, wxAccessible** found) {
    *to = 0;
    *found = nullptr;
    const int column = from > 0 ? from - 1 : column_;
    if (column == wholeRow && direction == wxNAVDIR_FIRSTCHILD)
        *found = owner_.part(row_, 0);
    else if (column == wholeRow && direction == wxNAVDIR_LASTCHILD)
        *found = owner_.part(row_, table().columns() - 1);
    else if (column == wholeRow)
        *found = owner_.part(rowAfter(direction, row_, true), wholeRow);
    else if (columnAfter(direction, column) >= 0)
        *found = owner_.part(rowAfter(direction, row_, false), columnAfter(direction, column));
    return *found == nullptr || *found == this ? wxACC_FALSE : wxACC_OK;
}

wxAccStatus TablePart::HitTest(const wxPoint& point, int* number, wxAccessible** child) {
    return owner_.HitTest(point, number, child);
}

wxAccStatus TablePart::Select(int number, wxAccSelectionFlags how) {
    if (number > 0) return wxACC_NOT_IMPLEMENTED;
    constexpr int selecting = wxACC_SEL_TAKEFOCUS | wxACC_SEL_TAKESELECTION;
    if (row_ == headerRow || !exists() || !table().grid().enabled() || (how & selecting) == 0)
        return wxACC_FAIL;
    table().select(row_);
    // The request came past the window system, so nothing else makes the window show the change.
    wxWakeUpIdle();
    return wxACC_OK;
}

}  // namespace catalogador::wx
