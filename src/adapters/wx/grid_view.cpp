#include "adapters/wx/grid_view.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "adapters/wx/appearance.h"
#include "adapters/wx/native_focus.h"
#include "adapters/wx/screen_frame.h"
#include "platform/controls/window.h"

namespace catalogador::wx {

namespace {
constexpr int edgeReach = 4;
constexpr int rowPadding = 4;
constexpr int rowsPerWheelStep = 3;
constexpr int narrowestColumn = 8;
/// A hand that clicks moves the mouse by less.
constexpr int leastDrag = 2;
/// Pixels at 96 dpi of one step to the side.
constexpr int sidewaysStep = 40;
/// What the margins of a cell and the arrow of the sorted column take.
constexpr int fittedMargin = 24;
}  // namespace

GridView::GridView(RecordGrid& grid, wxWindow& parent)
    : wxWindow(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxVSCROLL | wxHSCROLL | wxWANTS_CHARS | wxBORDER_NONE),
      grid_(grid) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    keepScrollBars(*this);
    accessible_ = GridAccessible::of(*this, grid_);
    Bind(wxEVT_PAINT, &GridView::onPaint, this);
    for (const auto& type :
         {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_UP, wxEVT_MOTION})
        Bind(type, &GridView::onMouse, this);
    Bind(wxEVT_MOUSEWHEEL, &GridView::onWheel, this);
    Bind(wxEVT_KEY_DOWN, &GridView::onKeyDown, this);
    Bind(wxEVT_CHAR, &GridView::onChar, this);
    for (const auto& type :
         {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
          wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN,
          wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE})
        Bind(type, &GridView::onScroll, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        syncWithModel();
        event.Skip();
    });
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        grid_.window()->userFocused(grid_);
        accessible_->changed();
        Refresh();
        event.Skip();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    });
}

void GridView::syncWithModel() {
    if (!grid_.redraw()) return;
    shownRows_ = grid_.visibleRows();
    grid_.setRowsThatFit(rowsThatFit());
    updateScrollbars();
    Refresh();
    accessible_->changed();
}

int GridView::headerHeight() const {
    return std::max(pixelsOf(*this, grid_.appearance().headerHeight),
                    GetCharHeight() + FromDIP(rowPadding));
}

int GridView::rowHeight() const {
    return std::max(pixelsOf(*this, grid_.appearance().rowHeightMin),
                    GetCharHeight() + FromDIP(rowPadding));
}

int GridView::rowsThatFit() const {
    return std::max(1, (GetClientSize().GetHeight() - headerHeight()) / rowHeight());
}

int GridView::firstVisible() const {
    const int count = grid_.visibleRows();
    if (count == 0) return 0;
    const int index = std::min(grid_.visibleIndexFrom(grid_.topRow()), count - 1);
    return std::clamp(index, 0, std::max(0, count - rowsThatFit()));
}

int GridView::contentWidth() const {
    int width = 0;
    for (int column = 0; column < grid_.columns(); ++column)
        if (!grid_.columnHidden(column)) width += pixelsOf(*this, grid_.columnWidth(column));
    return width;
}

wxRect GridView::columnRect(int column) const {
    int left = -scrolledX_;
    for (int c = 0; c < column; ++c)
        if (!grid_.columnHidden(c)) left += pixelsOf(*this, grid_.columnWidth(c));
    int width = pixelsOf(*this, grid_.columnWidth(column));
    if (column == grid_.columns() - 1 && grid_.appearance().extendLastColumn)
        width = std::max(width, GetClientSize().GetWidth() - left);
    return {left, 0, width, rowHeight()};
}

int GridView::columnAt(int x) const {
    for (int column = 0; column < grid_.columns(); ++column) {
        if (grid_.columnHidden(column)) continue;
        const wxRect rect = columnRect(column);
        if (x >= rect.x && x < rect.x + rect.width) return column;
    }
    return -1;
}

int GridView::edgeAt(const wxPoint& point) const {
    if (point.y >= headerHeight()) return -1;
    for (int column = grid_.listColumns() - 1; column >= 0; --column) {
        if (grid_.columnHidden(column)) continue;
        const wxRect rect = columnRect(column);
        if (std::abs(rect.x + rect.width - point.x) <= FromDIP(edgeReach)) return column;
    }
    return -1;
}

int GridView::rowAt(int y) const {
    if (y < headerHeight()) return 0;
    const int index = firstVisible() + (y - headerHeight()) / rowHeight();
    return index < grid_.visibleRows() ? grid_.visibleRow(index) : -1;
}

void GridView::onMouse(wxMouseEvent& event) {
    const wxPoint point = event.GetPosition();
    if (event.LeftDClick() && edgeAt(point) >= 0) {
        edgeClicked_ = true;
        fitColumn(edgeAt(point));
        return;
    }
    if (edgeClicked_ && event.LeftUp()) {
        edgeClicked_ = false;
        return;
    }
    if (draggedColumn_ >= 0 || (event.LeftDown() && edgeAt(point) >= 0)) {
        dragColumn(event);
        return;
    }
    if (event.Moving()) SetCursor(edgeAt(point) >= 0 ? wxCursor(wxCURSOR_SIZEWE) : wxNullCursor);
    const int row = rowAt(point.y);
    const int column = columnAt(point.x);
    if (event.LeftDown()) {
        SetFocus();
        if (row > 0) grid_.select(row, std::max(0, column));
    } else if (event.LeftDClick()) {
        if (row > 0) grid_.userDoubleClicked(row, column);
    } else if (event.RightUp()) {
        SetFocus();
        grid_.userClicked(MouseButton::right, row < 0 ? grid_.rows() : row, column);
    } else if (row >= 0 && event.LeftUp()) {
        grid_.userClicked(MouseButton::left, row, column);
    }
    event.Skip(event.Moving());
}

void GridView::dragColumn(const wxMouseEvent& event) {
    if (event.LeftDown()) {
        draggedColumn_ = edgeAt(event.GetPosition());
        dragStart_ = event.GetX();
        widthAtStart_ = columnRect(draggedColumn_).width;
        dragMoved_ = false;
        CaptureMouse();
        return;
    }
    const int moved = event.GetX() - dragStart_;
    dragMoved_ = dragMoved_ || std::abs(moved) >= FromDIP(leastDrag);
    const int width = std::max(FromDIP(narrowestColumn), widthAtStart_ + moved);
    if (!event.LeftUp()) {
        if (dragMoved_) grid_.setColumnWidth(draggedColumn_, twipsOf(*this, width));
        return;
    }
    if (HasCapture()) ReleaseMouse();
    const int column = std::exchange(draggedColumn_, -1);
    if (dragMoved_) grid_.userResized(column, twipsOf(*this, width));
}

void GridView::onWheel(wxMouseEvent& event) {
    wheelRest_ += event.GetWheelRotation();
    const int steps = wheelRest_ / event.GetWheelDelta();
    wheelRest_ -= steps * event.GetWheelDelta();
    const bool horizontal = event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL;
    if (horizontal || event.ShiftDown())
        scrollSideways(scrolledX_ + (horizontal ? steps : -steps) * FromDIP(sidewaysStep));
    else if (steps != 0)
        scrollTo(firstVisible() - steps * rowsPerWheelStep);
}

void GridView::onScroll(wxScrollWinEvent& event) {
    const wxEventType type = event.GetEventType();
    if (event.GetOrientation() == wxHORIZONTAL) {
        if (type == wxEVT_SCROLLWIN_THUMBTRACK || type == wxEVT_SCROLLWIN_THUMBRELEASE)
            scrolledX_ = event.GetPosition();
        syncWithModel();
        return;
    }
    const int page = std::max(1, rowsThatFit() - 1);
    int first = firstVisible();
    if (type == wxEVT_SCROLLWIN_TOP) first = 0;
    if (type == wxEVT_SCROLLWIN_BOTTOM) first = grid_.visibleRows();
    if (type == wxEVT_SCROLLWIN_LINEUP) --first;
    if (type == wxEVT_SCROLLWIN_LINEDOWN) ++first;
    if (type == wxEVT_SCROLLWIN_PAGEUP) first -= page;
    if (type == wxEVT_SCROLLWIN_PAGEDOWN) first += page;
    if (type == wxEVT_SCROLLWIN_THUMBTRACK || type == wxEVT_SCROLLWIN_THUMBRELEASE)
        first = event.GetPosition();
    scrollTo(first);
}

void GridView::scrollTo(int first) {
    const int count = grid_.visibleRows();
    if (count == 0) return;
    grid_.setTopRow(grid_.visibleRow(std::clamp(first, 0, std::max(0, count - rowsThatFit()))));
}

void GridView::updateScrollbars() {
    // A range that is shorter than the page would count as scrolled beyond the end, and the desktop
    // shades that end.
    SetScrollbar(wxVERTICAL, firstVisible(), rowsThatFit(), std::max(shownRows_, rowsThatFit()));
    const int width = GetClientSize().GetWidth();
    scrolledX_ = std::clamp(scrolledX_, 0, std::max(0, contentWidth() - width));
    SetScrollbar(wxHORIZONTAL, scrolledX_, width, std::max(width, contentWidth()));
}

void GridView::scrollSideways(int to) {
    scrolledX_ = to;
    syncWithModel();
}

void GridView::onKeyDown(wxKeyEvent& event) {
    const int step = FromDIP(sidewaysStep);
    const int code = event.GetKeyCode();
    if (event.AltDown() || event.ShiftDown()) return event.Skip();
    if (code == WXK_LEFT || code == WXK_NUMPAD_LEFT)
        scrollSideways(scrolledX_ - step);
    else if (code == WXK_RIGHT || code == WXK_NUMPAD_RIGHT)
        scrollSideways(scrolledX_ + step);
    else
        event.Skip();
}

void GridView::onChar(wxKeyEvent& event) {
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    // Alt and a letter open a menu. Both keys together are the third level of a keyboard.
    const bool command = event.ControlDown() != event.AltDown();
    if (character < U' ' || character == WXK_DELETE || command) return event.Skip();
    grid_.window()->typeCharacter(character);
    // At once: the focus may be in a field by now, which the next key is meant for.
    if (auto* frame = dynamic_cast<ScreenFrame*>(wxGetTopLevelParent(this))) frame->sync();
}

void GridView::fitColumn(int column) {
    wxClientDC dc(this);
    wxFont bold = GetFont();
    bold.MakeBold();
    dc.SetFont(bold);
    int widest = dc.GetTextExtent(wxText(grid_.header(column))).x;
    dc.SetFont(GetFont());
    const int first = firstVisible();
    const int end = std::min(grid_.visibleRows(), first + rowsThatFit() + 1);
    for (int n = first; n < end; ++n) {
        const int row = grid_.visibleRow(n);
        if (grid_.check(row, column) != CheckState::none) continue;
        widest = std::max(widest, dc.GetTextExtent(wxText(grid_.text(row, column))).x);
    }
    grid_.userResized(column, twipsOf(*this, widest + FromDIP(fittedMargin)));
}

wxRect GridView::cellOnScreen(int row, int column) const {
    const wxSize room = GetClientSize();
    wxRect place(0, 0, room.GetWidth(), headerHeight());
    if (row != 0) {
        const int index = grid_.visibleIndex(row);
        const int line = index - firstVisible();
        if (index < 0 || line < 0 || line > rowsThatFit()) return {};
        place.y = headerHeight() + line * rowHeight();
        place.height = rowHeight();
    }
    if (column >= 0) {
        const wxRect cell = columnRect(column);
        place.x = cell.x;
        place.width = cell.width;
        if (!place.Intersects(wxRect(room))) return {};
    }
    return {ClientToScreen(place.GetPosition()), place.GetSize()};
}

}  // namespace catalogador::wx
