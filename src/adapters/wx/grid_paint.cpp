#include <wx/dcbuffer.h>
#include <wx/dcmemory.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>
#include <string>
#include <vector>

#include "adapters/wx/appearance.h"
#include "adapters/wx/cell_drawing.h"
#include "adapters/wx/grid_view.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

constexpr int cellMargin = 5;
constexpr int arrowSize = 4;
/// Alignment codes go by columns of three: left, centre, right.
constexpr int codesPerSide = 3;
constexpr int rightCodes = 2;

int side(int alignment) {
    return std::clamp(alignment / codesPerSide, 0, rightCodes);
}

}  // namespace

void GridView::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    paint(dc);
}

void GridView::prepare() {
    wxBitmap nowhere;
    nowhere.Create(1, 1);
    wxMemoryDC dc(nowhere);
    paint(dc);
}

void GridView::paint(wxDC& dc) {
    dc.SetFont(GetFont());
    dc.SetBackground(wxBrush(colourOf(grid_.backColor())));
    dc.Clear();
    CellTexts texts(dc, *this);
    texts.wrap(grid_.appearance().wordWrap);
    paintRows(dc, texts);
    paintHeader(dc, texts);
    if (grid_.visibleRows() == 0) paintEmptyText(dc);
    paintBorder(dc);
}

void GridView::paintEmptyText(wxDC& dc) {
    dc.SetTextForeground(usualTextColour());
    const wxSize room = GetClientSize();
    wxRect middle(0, headerHeight(), room.x, std::max(0, room.y - headerHeight()) / 2);
    middle.Deflate(FromDIP(cellMargin), 0);
    dc.DrawLabel(wxText(grid_.window()->emptyListText()), middle, wxALIGN_CENTRE);
}

void GridView::paintHeader(wxDC& dc, CellTexts& texts) {
    const GridAppearance& look = grid_.appearance();
    const wxRect bar(0, 0, GetClientSize().GetWidth(), headerHeight());
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colourOf(look.backColorFixed)));
    dc.DrawRectangle(bar);
    wxFont bold = GetFont();
    bold.MakeBold();
    dc.SetFont(bold);
    texts.fontChanged();
    dc.SetTextForeground(readableOn(colourOf(look.backColorFixed), colourOf(look.foreColorFixed)));
    dc.SetPen(wxPen(colourOf(look.gridColor)));
    for (int column = 0; column < grid_.columns(); ++column) {
        if (grid_.columnHidden(column)) continue;
        wxRect cell = columnRect(column);
        if (cell.GetRight() < 0 || cell.x > bar.width) continue;
        cell.height = bar.height;
        const bool sorted = grid_.sortIndicator() == sort_indicator::arrow &&
                            grid_.sortColumn() == column && cell.width > 24;
        wxRect text = cell;
        if (sorted) text.width -= FromDIP(3 * arrowSize);
        paintText(texts, grid_.header(column), text, 1);
        if (sorted) paintSortArrow(dc, cell);
        dc.DrawLine(cell.GetRight(), 3, cell.GetRight(), bar.height - 3);
    }
    dc.DrawLine(0, bar.height - 1, bar.width, bar.height - 1);
    dc.SetFont(GetFont());
}

void GridView::paintSortArrow(wxDC& dc, const wxRect& cell) {
    const int size = FromDIP(arrowSize);
    const int x = cell.GetRight() - 3 * size;
    const int y = cell.y + (cell.height - size) / 2;
    const bool up = grid_.sortOrder() == sort_order::ascending;
    const wxPoint corners[3] = {
        {0, up ? size : 0}, {2 * size, up ? size : 0}, {size, up ? 0 : size}};
    const wxPen pen = dc.GetPen();
    dc.SetBrush(wxBrush(dc.GetTextForeground()));
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.DrawPolygon(3, corners, x, y);
    dc.SetPen(pen);
}

void GridView::paintRows(wxDC& dc, CellTexts& texts) {
    const int first = firstVisible();
    const int fit = GetClientSize().GetHeight() / rowHeight() + 1;
    const int end = std::min(grid_.visibleRows(), first + fit);
    std::vector<wxRect> cells;
    cells.reserve(static_cast<std::size_t>(grid_.columns()));
    for (int column = 0; column < grid_.columns(); ++column) cells.push_back(columnRect(column));
    for (int n = first; n < end; ++n)
        paintRow(dc, texts, grid_.visibleRow(n), headerHeight() + (n - first) * rowHeight(), cells);
    paintLines(dc, cells, end - first);
}

/// The list as a whole shows that the keys go there, not a row of it.
void GridView::paintBorder(wxDC& dc) {
    const GridAppearance& look = grid_.appearance();
    if (!HasFocus() && look.borderStyle == 0) return;
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.SetPen(wxPen(
        HasFocus() ? wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT) : colourOf(look.gridColor),
        FromDIP(1)));
    dc.DrawRectangle(GetClientSize());
}

wxColour GridView::selectedTextColour() const {
    const GridAppearance& look = grid_.appearance();
    return readableOn(colourOf(look.backColorSel), colourOf(look.foreColorSel));
}

wxColour GridView::usualTextColour() const {
    return readableOn(colourOf(grid_.backColor()),
                      wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
}

void GridView::paintRow(wxDC& dc, CellTexts& texts, int row, int top,
                        const std::vector<wxRect>& cells) {
    const wxRect line(0, top, GetClientSize().GetWidth(), rowHeight());
    const bool selected = row == grid_.row();
    if (selected) {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(colourOf(grid_.appearance().backColorSel)));
        dc.DrawRectangle(line);
    }
    dc.SetTextForeground(selected ? selectedTextColour() : usualTextColour());
    for (int column = 0; column < grid_.columns(); ++column) {
        wxRect cell = cells[static_cast<std::size_t>(column)];
        if (grid_.columnHidden(column) || cell.GetRight() < 0 || cell.x > line.width) continue;
        cell.y = top;
        paintCell(dc, texts, row, column, cell);
    }
}

/// One line across for each row and one down for each column, rather than two for each cell.
void GridView::paintLines(wxDC& dc, const std::vector<wxRect>& cells, int rows) {
    if (rows <= 0 || grid_.appearance().gridLines == 0) return;
    const int width = GetClientSize().GetWidth();
    const int bottom = headerHeight() + rows * rowHeight();
    dc.SetPen(wxPen(colourOf(grid_.appearance().gridColor)));
    for (int column = 0; column < grid_.columns(); ++column) {
        const wxRect& cell = cells[static_cast<std::size_t>(column)];
        if (grid_.columnHidden(column) || cell.GetRight() < 0 || cell.x > width) continue;
        dc.DrawLine(cell.GetRight(), headerHeight(), cell.GetRight(), bottom - 1);
    }
    for (int y = headerHeight() + rowHeight(); y <= bottom; y += rowHeight())
        dc.DrawLine(0, y - 1, width, y - 1);
}

void GridView::paintCell(wxDC& dc, CellTexts& texts, int row, int column, const wxRect& cell) {
    const CheckState check = grid_.check(row, column);
    if (check != CheckState::none) {
        paintCheck(dc, cell, check == CheckState::checked, row == grid_.row());
        return;
    }
    // A character is two pixels wide at least; what lies behind the cell's end is not measured.
    const auto most = static_cast<std::size_t>(std::max(0, cell.width));
    const std::string_view text = leftCharacters(grid_.text(row, column), most);
    paintText(texts, text, cell, grid_.alignment(row, column));
}

void GridView::paintCheck(wxDC& dc, const wxRect& cell, bool checked, bool selected) {
    wxSize size = wxRendererNative::Get().GetCheckBoxSize(this);
    size.DecTo(wxSize(cell.width - 2, cell.height - 4));
    if (size.x <= 0 || size.y <= 0) return;
    dc.DrawBitmap(checkPicture(size, checked, selected), cell.x + (cell.width - size.x) / 2,
                  cell.y + (cell.height - size.y) / 2);
}

/// Drawing one takes longer than a text.
const wxBitmap& GridView::checkPicture(const wxSize& size, bool checked, bool selected) {
    const wxColour background =
        colourOf(selected ? grid_.appearance().backColorSel : grid_.backColor());
    CheckPicture& picture = checkPictures_[(checked ? 1U : 0U) + (selected ? 2U : 0U)];
    if (!picture.bitmap.IsOk() || picture.bitmap.GetSize() != size ||
        picture.background != background) {
        picture.bitmap.Create(size);
        picture.background = background;
        wxMemoryDC dc(picture.bitmap);
        dc.SetBackground(wxBrush(background));
        dc.Clear();
        drawCheckBox(dc, *this, size, checked, background);
    }
    return picture.bitmap;
}

void GridView::paintText(CellTexts& texts, std::string_view text, const wxRect& cell,
                         int alignment) {
    if (text.empty()) return;
    wxRect inside = cell;
    inside.Deflate(FromDIP(cellMargin), 0);
    if (inside.width <= 0) return;
    if (text.find_first_of("\r\n") == std::string_view::npos)
        return texts.draw(text, inside, side(alignment));
    // Line ends inside of a text would draw it over the rows below.
    std::string line(text);
    std::erase(line, '\r');
    std::replace(line.begin(), line.end(), '\n', ' ');
    texts.draw(line, inside, side(alignment));
}

}  // namespace catalogador::wx
