#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/grid_view.h"

namespace catalogador {

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

void GridView::paint(wxDC& dc) {
    dc.SetFont(GetFont());
    dc.SetBackground(wxBrush(colourOf(grid_.backColor())));
    dc.Clear();
    paintRows(dc);
    paintHeader(dc);
}

void GridView::paintHeader(wxDC& dc) {
    const GridAppearance& look = grid_.appearance();
    const wxRect bar(0, 0, GetClientSize().GetWidth(), headerHeight());
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colourOf(look.backColorFixed)));
    dc.DrawRectangle(bar);
    wxFont bold = GetFont();
    bold.MakeBold();
    dc.SetFont(bold);
    dc.SetTextForeground(colourOf(look.foreColorFixed));
    dc.SetPen(wxPen(colourOf(look.gridColor)));
    for (int column = 0; column < grid_.columns(); ++column) {
        if (grid_.columnHidden(column)) continue;
        wxRect cell = columnRect(column);
        cell.height = bar.height;
        const bool sorted =
            grid_.sortIndicator() == 5 && grid_.sortColumn() == column && cell.width > 24;
        wxRect text = cell;
        if (sorted) text.width -= FromDIP(3 * arrowSize);
        paintText(dc, wxText(grid_.header(column)), text, 1);
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

void GridView::paintRows(wxDC& dc) {
    const int count = grid_.visibleRows();
    const int first = firstVisible();
    const int fit = GetClientSize().GetHeight() / rowHeight() + 1;
    for (int n = first; n < std::min(count, first + fit); ++n)
        paintRow(dc, grid_.visibleRow(n), headerHeight() + (n - first) * rowHeight());
}

void GridView::paintRow(wxDC& dc, int row, int top) {
    const GridAppearance& look = grid_.appearance();
    const wxRect line(0, top, GetClientSize().GetWidth(), rowHeight());
    const bool selected = row == grid_.row();
    wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    if (selected) {
        const wxColour background = colourOf(look.backColorSel);
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(background));
        dc.DrawRectangle(line);
        text = readableOn(background, colourOf(look.foreColorSel));
    }
    dc.SetTextForeground(text);
    const wxColour gridColour = colourOf(look.gridColor).ChangeLightness(140);
    for (int column = 0; column < grid_.columns(); ++column) {
        if (grid_.columnHidden(column)) continue;
        wxRect cell = columnRect(column);
        cell.y = top;
        cell.height = line.height;
        if (cell.GetRight() < 0 || cell.x > line.width) continue;
        paintCell(dc, row, column, cell);
        dc.SetPen(wxPen(gridColour));
        dc.DrawLine(cell.GetRight(), cell.y, cell.GetRight(), cell.GetBottom());
    }
    dc.SetPen(wxPen(gridColour));
    dc.DrawLine(0, line.GetBottom(), line.width, line.GetBottom());
    if (selected && HasFocus()) {
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.SetPen(wxPen(text));
        dc.DrawRectangle(line);
    }
}

void GridView::paintCell(wxDC& dc, int row, int column, const wxRect& cell) {
    const CheckState check = grid_.check(row, column);
    if (check != CheckState::none)
        paintCheck(dc, cell, check == CheckState::checked);
    else
        paintText(dc, wxText(grid_.text(row, column)), cell, grid_.alignment(row, column));
}

void GridView::paintCheck(wxDC& dc, const wxRect& cell, bool checked) {
    wxSize size = wxRendererNative::Get().GetCheckBoxSize(this);
    size.DecTo(wxSize(cell.width - 2, cell.height - 4));
    const wxRect box(cell.x + (cell.width - size.x) / 2, cell.y + (cell.height - size.y) / 2,
                     size.x, size.y);
    wxRendererNative::Get().DrawCheckBox(this, dc, box,
                                         checked ? static_cast<int>(wxCONTROL_CHECKED) : 0);
}

void GridView::paintText(wxDC& dc, const wxString& text, const wxRect& cell, int alignment) {
    if (text.empty()) return;
    wxRect inside = cell;
    inside.Deflate(FromDIP(cellMargin), 0);
    if (inside.width <= 0) return;
    // Line ends inside of a text would draw it over the rows below.
    wxString line = text;
    line.Replace("\r", "");
    line.Replace("\n", " ");
    const wxString shown =
        wxControl::Ellipsize(line, dc, wxELLIPSIZE_END, inside.width, wxELLIPSIZE_FLAGS_NONE);
    constexpr int flags[3] = {wxALIGN_LEFT, wxALIGN_CENTRE_HORIZONTAL, wxALIGN_RIGHT};
    const wxDCClipper clip(dc, inside);
    dc.DrawLabel(shown, inside, flags[side(alignment)] | wxALIGN_CENTRE_VERTICAL);
}

}  // namespace catalogador
