#pragma once
#include <wx/bitmap.h>
#include <wx/dc.h>
#include <wx/window.h>

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "adapters/wx/grid_accessible.h"
#include "platform/controls/record_grid.h"

namespace catalogador::wx {

class CellTexts;

/// Draws the record grid: only the rows that are in sight, however many there are.
class GridView : public wxWindow {
  public:
    GridView(RecordGrid& grid, wxWindow& parent);

    /// Follows the model after a change.
    void syncWithModel();
    /// Number of data rows that can be scrolled to.
    [[nodiscard]] int shownRows() const { return shownRows_; }
    /// Draws header and rows in sight.
    void paint(wxDC& dc);
    /// To the first or the last column.
    void scrollToSide(bool end) { scrollSideways(end ? contentWidth() : 0); }
    /// Where the selected row is on the screen; empty when it is out of sight.
    [[nodiscard]] wxRect selectedRowOnScreen() const { return cellOnScreen(grid_.row(), -1); }
    /// Where a cell is on the screen, in pixels; empty when it is out of sight. `row` is the grid's
    /// own number, 0 for the header; column -1 stands for all of the row.
    [[nodiscard]] wxRect cellOnScreen(int row, int column) const;
    /// A row and a column of the grid, 0 the row of the headers, -1 none.
    struct GridCell {
        int row = -1;
        int column = -1;
    };
    /// The cell at a point of the window, in pixels.
    [[nodiscard]] GridCell cellAt(const wxPoint& point) const {
        return {rowAt(point.y), columnAt(point.x)};
    }
    /// Has the fonts loaded that it draws with.
    void prepare();

  private:
    [[nodiscard]] int headerHeight() const;
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] int rowsThatFit() const;
    /// Index among the visible rows of the first one shown.
    [[nodiscard]] int firstVisible() const;
    /// Left edge and width of a column in pixels, the scrolled part taken off.
    [[nodiscard]] wxRect columnRect(int column) const;
    [[nodiscard]] int contentWidth() const;
    /// The grid column at a pixel, -1 for none.
    [[nodiscard]] int columnAt(int x) const;
    /// The column whose right edge is near a pixel of the header, -1 for none.
    [[nodiscard]] int edgeAt(const wxPoint& point) const;
    /// The grid row at a pixel: 0 header, -1 below the last row.
    [[nodiscard]] int rowAt(int y) const;

    void onPaint(wxPaintEvent& event);
    void paintHeader(wxDC& dc, CellTexts& texts);
    void paintRows(wxDC& dc, CellTexts& texts);
    void paintBorder(wxDC& dc);
    void paintRow(wxDC& dc, CellTexts& texts, int row, int top, const std::vector<wxRect>& cells);
    void paintLines(wxDC& dc, const std::vector<wxRect>& cells, int rows);
    void paintCell(wxDC& dc, CellTexts& texts, int row, int column, const wxRect& cell);
    void paintCheck(wxDC& dc, const wxRect& cell, bool checked, bool selected);
    const wxBitmap& checkPicture(const wxSize& size, bool checked, bool selected);
    [[nodiscard]] wxColour selectedTextColour() const;
    [[nodiscard]] wxColour usualTextColour() const;
    void paintText(CellTexts& texts, std::string_view text, const wxRect& cell, int alignment);
    void paintSortArrow(wxDC& dc, const wxRect& cell);

    void onMouse(wxMouseEvent& event);
    void onWheel(wxMouseEvent& event);
    void onScroll(wxScrollWinEvent& event);
    void onKeyDown(wxKeyEvent& event);
    void onChar(wxKeyEvent& event);
    void scrollSideways(int to);
    /// Makes a column as wide as what is in sight of it.
    void fitColumn(int column);
    void paintEmptyText(wxDC& dc);
    void scrollTo(int first);
    void updateScrollbars();
    void dragColumn(const wxMouseEvent& event);

    /// A check box as it was drawn once.
    struct CheckPicture {
        wxBitmap bitmap;
        wxColour background;
    };

    RecordGrid& grid_;
    std::unique_ptr<GridAccessible> accessible_;
    std::array<CheckPicture, 4> checkPictures_;
    int shownRows_ = 0;
    int scrolledX_ = 0;
    /// The column whose edge is held, -1 for none; what it was held at, and how wide it was, in
    /// pixels. It stays as it is until the mouse has moved.
    int draggedColumn_ = -1;
    int dragStart_ = 0;
    int widthAtStart_ = 0;
    bool dragMoved_ = false;
    /// The second press of a double click on an edge was used; its release is no click.
    bool edgeClicked_ = false;
    int wheelRest_ = 0;
};

}  // namespace catalogador::wx
