#include "adapters/script/grid_input.h"

#include "adapters/script/user_input.h"
#include "platform/controls/record_grid.h"
#include "runtime/text.h"

namespace catalogador::script {

namespace {

constexpr int headerRow = 0;

RecordGrid& gridOf(Window& window) {
    if (window.list() == nullptr) throw Refusal("the window has no grid");
    return *window.list();
}

int rowArgument(const RecordGrid& grid, Arguments& line) {
    const auto ordinal = line.number<int>("the row");
    line.end();
    if (ordinal < 1 || ordinal > grid.visibleRows())
        throw Refusal("the grid has no visible row " + decimalText(ordinal));
    return grid.visibleRow(ordinal - 1);
}

int columnArgument(const RecordGrid& grid, Arguments& line) {
    const auto column = line.number<int>("the column");
    if (column < 0 || column >= grid.columns() || grid.columnHidden(column))
        throw Refusal("the grid shows no column " + decimalText(column));
    return column;
}

/// The column that a click on a row falls into.
int firstShownColumn(const RecordGrid& grid) {
    for (int column = 0; column < grid.columns(); ++column)
        if (!grid.columnHidden(column)) return column;
    return 0;
}

void click(Window& window, RecordGrid& grid, MouseButton button, int row, int column) {
    focusControl(window, grid.name());
    grid.userClicked(button, row, column);
}

void clickRow(Window& window, RecordGrid& grid, MouseButton button, Arguments& line) {
    const int row = rowArgument(grid, line);
    click(window, grid, button, row, firstShownColumn(grid));
}

void rightClick(Window& window, RecordGrid& grid, Arguments& line) {
    if (!line.accept("empty")) return clickRow(window, grid, MouseButton::right, line);
    line.end();
    click(window, grid, MouseButton::right, grid.rows(), firstShownColumn(grid));
}

void doubleClick(Window& window, RecordGrid& grid, Arguments& line) {
    const bool header = line.accept("header");
    const int column = header ? columnArgument(grid, line) : firstShownColumn(grid);
    const int row = header ? headerRow : rowArgument(grid, line);
    line.end();
    click(window, grid, MouseButton::left, row, column);
    grid.userDoubleClicked(row, column);
}

void resizeColumn(Window& window, RecordGrid& grid, Arguments& line) {
    const int column = columnArgument(grid, line);
    const auto width = line.number<int>("the width");
    line.end();
    if (width < 0) throw Refusal("a column cannot be " + decimalText(width) + " twips wide");
    focusControl(window, grid.name());
    grid.userResized(column, width);
}

}  // namespace

void useGrid(Window& window, Arguments& line) {
    RecordGrid& grid = gridOf(window);
    if (line.accept("select")) return clickRow(window, grid, MouseButton::left, line);
    if (line.accept("rightclick")) return rightClick(window, grid, line);
    if (line.accept("doubleclick")) return doubleClick(window, grid, line);
    if (line.accept("resize")) return resizeColumn(window, grid, line);
    if (!line.accept("header")) throw Refusal("grid does not know " + line.word("what to do"));
    const int column = columnArgument(grid, line);
    line.end();
    click(window, grid, MouseButton::left, headerRow, column);
}

}  // namespace catalogador::script
