#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.h"
#include "platform/controls/rows/packed_texts.h"
#include "platform/controls/rows/row_marks.h"
#include "platform/controls/type_ahead.h"
#include "runtime/base_letters.h"
#include "runtime/like.h"

namespace catalogador {

enum class MouseButton { left = 1, right = 2 };

/// Check state of a cell.
enum class CheckState : std::uint8_t { none = 0, checked = 1, unchecked = 2 };

namespace sort_order {
constexpr int none = 0;
constexpr int ascending = 1;
constexpr int descending = 2;
}  // namespace sort_order

/// Values of RecordGrid::sortIndicator(); it is 0 before the first sort.
namespace sort_indicator {
constexpr int none = 1;
/// An arrow in the header of the sorted column.
constexpr int arrow = 5;
}  // namespace sort_indicator

/// How the list is drawn. Its background, also of the empty part and of every second row, is that
/// of the control.
struct GridAppearance {
    /// Style of the lines between cells: 0 draws none, every other number the same thin lines.
    int gridLines = 1;
    /// Whether the text of a cell is broken into a second line where the row has room for one.
    bool wordWrap = true;
    Color backColorFixed = systemButtonFaceColor;
    Color foreColorFixed{0x80000012};
    Color backColorSel = systemHighlightColor;
    Color foreColorSel{0x8000000E};
    Color gridColor = systemButtonFaceColor;
    /// 0 draws a line around the list only while it has the focus, 1 always.
    int borderStyle = 1;
    /// Heights in twips.
    int headerHeight = 240;
    int rowHeightMin = 0;
    bool extendLastColumn = true;  ///< Whether the last column is widened to fill the list.
};

/// The grid of records. Row 0 is the header; data rows follow in the order of the sort, hidden
/// ones included, so that a row number changes with the sort. A cell has a text, and, in a
/// check-box column, a check state; column 0 carries the record's code as the row's data.
///
/// Cells are packed in one buffer a column, so that a million rows need little more than their
/// texts.
class RecordGrid : public Control {
  public:
    using Control::Control;
    [[nodiscard]] bool focusable() const override { return true; }

    static constexpr int fixedRows = 1;
    static constexpr int defaultColumnWidth = 960;
    static constexpr int booleanType = 11;

    /// Number of rows, the header included.
    [[nodiscard]] int rows() const { return fixedRows + static_cast<int>(hidden_.size()); }
    /// Removes all data rows.
    void clearRows();
    [[nodiscard]] int columns() const { return static_cast<int>(columns_.size()); }
    /// New columns have no header, the default width and no alignment code.
    void setColumns(int count);
    /// Number of columns that a listing can fill: all but the extra one.
    [[nodiscard]] int listColumns() const { return columns() - (extraColumn_ ? 1 : 0); }
    /// The extra column stands last, has no header and is filled by no listing. It is there once
    /// or not at all: adding it again and removing it again change nothing.
    [[nodiscard]] bool hasExtraColumn() const { return extraColumn_; }
    void addExtraColumn(int twips);
    void removeExtraColumn();
    /// Headers separated by "|"; their number becomes the number of columns, none of them extra. An
    /// empty text changes nothing.
    void setFormatString(std::string_view headers);

    [[nodiscard]] const std::string& header(int column) const;
    /// Data value of a header cell: the column's alignment code, or what a header click left.
    [[nodiscard]] std::optional<double> headerData(int column) const;
    void setHeaderData(int column, double value);
    [[nodiscard]] int columnWidth(int column) const;
    void setColumnWidth(int column, int twips);
    [[nodiscard]] bool columnHidden(int column) const;
    void setColumnHidden(int column, bool hidden);
    [[nodiscard]] bool columnIsBoolean(int column) const;
    void setColumnBoolean(int column, bool boolean);
    /// Whether cells of the column show a check box: those of a check-box column, and those of
    /// another one that were given a state.
    [[nodiscard]] bool columnHasChecks(int column) const;

    /// Appends an empty row and gives its number. Appended rows come last whatever the sort.
    int addRow();
    /// Appends `count` empty rows and gives the number of the first.
    int addRows(std::size_t count);
    /// Row numbers from 1. All cell members raise subscriptOutOfRange outside of the grid.
    [[nodiscard]] std::string_view text(int row, int column) const;
    void setText(int row, int column, std::string_view text);
    /// The texts of rows that were just appended, from a row on; one without data() sets nothing.
    void setTexts(int row, int column, std::span<const std::string_view> texts);
    /// The row's code as text.
    [[nodiscard]] std::string code(int row) const;
    void setCode(int row, std::string_view code);
    [[nodiscard]] CheckState check(int row, int column) const;
    void setCheck(int row, int column, CheckState state);
    /// All data rows of a column have the same alignment, 0 until it is set.
    [[nodiscard]] int alignment(int row, int column) const;
    void setColumnAlignment(int column, int alignment);
    /// Releases the memory reserved for more rows. To be called after the last row of a load.
    void packRows();

    [[nodiscard]] bool rowHidden(int row) const;
    void setRowHidden(int row, bool hidden);
    void showAllRows();
    /// Hides every data row none of whose cells, in upper case, matches the pattern. Where accents
    /// are ignored, the pattern must have none.
    void filter(const LikePattern& pattern, Accents accents = Accents::count);
    /// Number of data rows that are not hidden.
    [[nodiscard]] int visibleRows() const;
    /// The row number of the n-th visible data row (from 0), in constant time.
    [[nodiscard]] int visibleRow(int n) const;
    /// Which visible data row a row is (from 0), -1 when it is hidden or the header.
    [[nodiscard]] int visibleIndex(int row) const;
    /// Which visible data row is the first from that row on; visibleRows() when all are hidden.
    [[nodiscard]] int visibleIndexFrom(int row) const;
    /// The first row whose code is that number, however it is written ("007"); 0 when there is
    /// none.
    [[nodiscard]] int findCode(std::int32_t code) const;
    /// The same for the code as text.
    [[nodiscard]] int findCode(std::string_view code) const;

    /// Sorts by a column: empty cells, then numbers by value (with a point or a comma for the
    /// decimals), then everything else as text without regard to case; equal rows keep their
    /// order. The selected cell keeps its row number, not its record.
    void sort(int column, int order);
    [[nodiscard]] int sortColumn() const { return sortColumn_; }
    [[nodiscard]] int sortOrder() const { return sortOrder_; }
    /// One of sort_indicator, or 0.
    [[nodiscard]] int sortIndicator() const { return sortIndicator_; }
    void setSortIndicator(int mode);

    /// The selected cell; row 0 stands for the header, as after the start of a new record.
    [[nodiscard]] int row() const { return row_; }
    [[nodiscard]] int column() const { return column_; }
    /// Also scrolls to a data row that is not visible. Raises subscriptOutOfRange for no row.
    void select(int row, int column);
    /// The first row shown under the header.
    [[nodiscard]] int topRow() const { return topRow_; }
    void setTopRow(int row);  ///< Limited to the rows that there are.
    /// Whether no filter hides the row and it is inside the part that is shown.
    [[nodiscard]] bool rowIsShown(int row) const;
    /// Scrolls by no more than it takes to show the row whole. A hidden row changes nothing.
    void bringIntoSight(int row);
    /// How many data rows fit: what the surface has measured, else what the heights give.
    [[nodiscard]] int rowsThatFit() const;
    /// Keeps a selected row visible that was visible before.
    void setRowsThatFit(int count);

    [[nodiscard]] bool redraw() const { return redraw_; }
    /// While it is off, the surface is not notified of changes; turning it on draws the list.
    void setRedraw(bool redraw);
    void refresh() { changed(); }

    [[nodiscard]] const GridAppearance& appearance() const { return appearance_; }
    void setAppearance(const GridAppearance& appearance);

    /// Events. Row and column of the mouse are grid rows and columns.
    std::function<void(int row, int column)> onDoubleClick;
    std::function<void(MouseButton button, int row, int column)> onMouseUp;
    std::function<void(int row, int column)> onAfterUserResize;
    std::function<void(int column, int order)> onSort;

    /// Input from a surface: a click selects the cell (data rows only) and raises onMouseUp. The
    /// part below the last row has the number rows().
    void userClicked(MouseButton button, int row, int column);
    void userDoubleClicked(int row, int column);
    void userResized(int column, int twips);
    bool defaultKey(int keyCode, int modifiers) override;
    /// Goes to the next row whose sorted column (the first shown, while none is) begins with the
    /// letters typed.
    void defaultCharacter(char32_t character) override;

    /// What the columns shown say of a row, with tabs between them; check boxes are 1 and 0.
    [[nodiscard]] std::string rowText(int row) const;
    [[nodiscard]] std::string cellText(int row, int column) const;

  private:
    struct Column {
        std::string header;
        std::optional<double> headerData;
        int width = defaultColumnWidth;
        bool hidden = false;
        bool boolean = false;
        PackedTexts texts;
        PackedArray<CheckState> checks;
        int alignment = 0;
    };

    [[nodiscard]] std::size_t stored(int row) const;
    /// The stored row of the n-th data row (from 0), hidden ones counted.
    [[nodiscard]] std::size_t storedAt(std::size_t n) const {
        return order_.empty() ? n : order_[n];
    }
    /// The row number of the first of these stored rows, 0 when there is none.
    [[nodiscard]] int firstOf(const std::vector<std::uint32_t>& found) const;
    /// Where a row stands under the first one shown, -1 for one above it or hidden.
    [[nodiscard]] int placeInSight(int row) const;
    [[nodiscard]] const Column& columnAt(int column) const;
    Column& columnAt(int column);
    /// The column that letters are looked for in, -1 when none is shown.
    [[nodiscard]] int columnOfLetters() const;
    void rowsChanged();
    void buildVisible() const;
    void knowVisible() const {
        if (!visibleKnown_) buildVisible();
    }
    void changedWhenDrawn();

    std::vector<Column> columns_;
    PackedCodes codes_;
    /// Stored row of each data row in the order of the sort; empty while that is as they came.
    std::vector<std::uint32_t> order_;
    /// By stored row.
    RowMarks hidden_;
    /// How many rows are hidden, and the row numbers of the others when there are any hidden ones;
    /// built when first asked for.
    mutable std::vector<std::uint32_t> visible_;
    mutable std::size_t hiddenRows_ = 0;
    mutable bool visibleKnown_ = false;
    int row_ = 0;
    int column_ = 0;
    int topRow_ = fixedRows;
    int rowsThatFit_ = 0;
    int sortColumn_ = -1;
    int sortOrder_ = sort_order::none;
    int sortIndicator_ = 0;
    bool extraColumn_ = false;
    bool redraw_ = true;
    TypeAhead typeAhead_;
    GridAppearance appearance_;
};

}  // namespace catalogador
