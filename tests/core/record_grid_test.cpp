#include "platform/controls/record_grid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls/keys.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

void fill(RecordGrid& grid, const std::vector<std::vector<std::string>>& rows) {
    grid.setColumns(0);
    grid.setFormatString("A|B");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int row = grid.addRow();
        grid.setCode(row, std::to_string(i + 1));
        for (std::size_t c = 0; c < rows[i].size(); ++c)
            grid.setText(row, static_cast<int>(c), rows[i][c]);
    }
}

std::string codes(const RecordGrid& grid) {
    std::string all;
    for (int n = 0; n < grid.visibleRows(); ++n) all += grid.code(grid.visibleRow(n));
    return all;
}

TEST(RecordGrid, AFormatStringFixesTheNumberOfColumns) {
    RecordGrid grid("g");
    grid.setFormatString("País|Código|");
    EXPECT_EQ(grid.columns(), 3);
    EXPECT_EQ(grid.header(0), "País");
    EXPECT_EQ(grid.header(2), "");
    EXPECT_EQ(grid.columnWidth(1), RecordGrid::defaultColumnWidth);
}

TEST(RecordGrid, TheExtraColumnIsThereOnceOrNotAtAll) {
    RecordGrid grid("g");
    grid.setFormatString("A|B");
    grid.removeExtraColumn();
    EXPECT_EQ(grid.columns(), 2);
    EXPECT_EQ(grid.listColumns(), 2);
    for (int time = 0; time < 2; ++time) {
        grid.addExtraColumn(90);
        EXPECT_EQ(grid.columns(), 3);
        EXPECT_EQ(grid.listColumns(), 2);
        EXPECT_EQ(grid.columnWidth(2), 90);
    }
    for (int time = 0; time < 2; ++time) {
        grid.removeExtraColumn();
        EXPECT_EQ(grid.columns(), 2);
        EXPECT_EQ(grid.header(1), "B");
    }
}

TEST(RecordGrid, AColumnShowsChecksWhenItIsMadeForThemOrHasSome) {
    RecordGrid grid("g");
    fill(grid, {{"x"}, {"y"}});
    EXPECT_FALSE(grid.columnHasChecks(1));
    grid.setCheck(2, 1, CheckState::checked);
    EXPECT_TRUE(grid.columnHasChecks(1));
    EXPECT_FALSE(grid.columnIsBoolean(1));
    EXPECT_FALSE(grid.columnHasChecks(0));
    grid.setColumnBoolean(0, true);
    EXPECT_TRUE(grid.columnHasChecks(0));
}

TEST(RecordGrid, AnEmptyFormatStringChangesNothing) {
    RecordGrid grid("g");
    grid.setFormatString("");
    EXPECT_EQ(grid.columns(), 0);
}

TEST(RecordGrid, CellsThatWereNeverSetAreEmpty) {
    RecordGrid grid("g");
    fill(grid, {{}, {"x"}, {}});
    EXPECT_EQ(grid.text(1, 0), "");
    EXPECT_EQ(grid.text(2, 0), "x");
    EXPECT_EQ(grid.text(3, 1), "");
    EXPECT_EQ(grid.check(2, 0), CheckState::none);
    EXPECT_EQ(grid.code(3), "3");
}

TEST(RecordGrid, ACellCanBeReplacedByALongerAndAShorterText) {
    RecordGrid grid("g");
    fill(grid, {{"a", "b"}, {"c", "d"}});
    grid.setText(1, 0, "long text");
    grid.setText(2, 1, "");
    EXPECT_EQ(grid.text(1, 0), "long text");
    EXPECT_EQ(grid.text(2, 0), "c");
    EXPECT_EQ(grid.text(2, 1), "");
}

TEST(RecordGrid, CellsOutsideOfTheGridRaise) {
    RecordGrid grid("g");
    fill(grid, {{"a"}});
    EXPECT_THROW((void)grid.text(2, 0), RuntimeError);
    EXPECT_THROW((void)grid.text(1, 2), RuntimeError);
    EXPECT_THROW(grid.select(2, 0), RuntimeError);
}

TEST(RecordGrid, NumbersSortByValueAndTextsWithoutCase) {
    RecordGrid grid("g");
    fill(grid, {{"10", "beta"}, {"9", "Alfa"}, {"-1.5", "ÁBACO"}, {"", "ábaco"}});
    grid.sort(0, sort_order::ascending);
    EXPECT_EQ(codes(grid), "4321");
    grid.sort(0, sort_order::descending);
    EXPECT_EQ(codes(grid), "1234");
    grid.sort(1, sort_order::ascending);
    EXPECT_EQ(codes(grid).substr(0, 2), "21");
}

TEST(RecordGrid, EqualRowsKeepTheirOrderInBothDirections) {
    RecordGrid grid("g");
    fill(grid, {{"x"}, {"X"}, {"x"}});
    grid.sort(0, sort_order::descending);
    EXPECT_EQ(codes(grid), "123");
    grid.sort(0, sort_order::ascending);
    EXPECT_EQ(codes(grid), "123");
}

TEST(RecordGrid, AFilterLooksAtEveryColumnAndIgnoresCase) {
    RecordGrid grid("g");
    fill(grid, {{"uno", "xx"}, {"dos", "CABle"}, {"tres", ""}});
    grid.setColumnHidden(1, true);
    grid.filter(LikePattern("*AB*"));
    EXPECT_EQ(codes(grid), "2");
    EXPECT_TRUE(grid.rowHidden(1));
    EXPECT_EQ(grid.visibleIndex(1), -1);
    EXPECT_EQ(grid.visibleIndex(2), 0);
    grid.filter(LikePattern("**"));
    EXPECT_EQ(grid.visibleRows(), 3);
}

TEST(RecordGrid, AFilterTellsAccentsUnlessItIsToIgnoreThem) {
    RecordGrid grid("g");
    fill(grid, {{"Perú"}, {"peru"}, {"PERÚ"}, {"Lima"}, {"İperu"}});
    grid.filter(LikePattern("*PERU*"));
    EXPECT_EQ(codes(grid), "25");
    grid.filter(LikePattern("*PERU*"), Accents::ignored);
    EXPECT_EQ(codes(grid), "1235");
    grid.filter(LikePattern("*P?RU*"), Accents::ignored);
    EXPECT_EQ(codes(grid), "1235");
    grid.filter(LikePattern("**"), Accents::ignored);
    EXPECT_EQ(grid.visibleRows(), 5);
}

TEST(RecordGrid, VisibleRowsFollowSortAndFilter) {
    RecordGrid grid("g");
    fill(grid, {{"c"}, {"a"}, {"b"}});
    grid.sort(0, sort_order::ascending);
    grid.setRowHidden(2, true);
    EXPECT_EQ(codes(grid), "21");
    EXPECT_EQ(grid.visibleRow(1), 3);
    EXPECT_EQ(grid.findCode(1), 3);
    EXPECT_EQ(grid.findCode(99), 0);
}

TEST(RecordGrid, ClearingKeepsColumnsAndForgetsTheSort) {
    RecordGrid grid("g");
    fill(grid, {{"c"}, {"a"}});
    grid.sort(0, sort_order::ascending);
    grid.clearRows();
    EXPECT_EQ(grid.rows(), RecordGrid::fixedRows);
    EXPECT_EQ(grid.columns(), 2);
    EXPECT_EQ(grid.sortColumn(), -1);
}

TEST(RecordGrid, ArrowKeysSkipHiddenRows) {
    RecordGrid grid("g");
    fill(grid, {{"a"}, {"b"}, {"c"}});
    grid.setRowHidden(2, true);
    grid.select(1, 0);
    grid.defaultKey(key::down, 0);
    EXPECT_EQ(grid.row(), 3);
    grid.defaultKey(key::down, 0);
    EXPECT_EQ(grid.row(), 3);
    grid.defaultKey(key::home, 0);
    EXPECT_EQ(grid.row(), 1);
}

TEST(RecordGrid, MovingPastTheLastShownRowScrolls) {
    RecordGrid grid("g");
    fill(grid, std::vector<std::vector<std::string>>(50));
    grid.setRowsThatFit(10);
    grid.select(1, 0);
    grid.defaultKey(key::end, 0);
    EXPECT_EQ(grid.row(), 50);
    EXPECT_EQ(grid.topRow(), 41);
    EXPECT_TRUE(grid.rowIsShown(50));
    EXPECT_FALSE(grid.rowIsShown(40));
    grid.defaultKey(key::home, 0);
    EXPECT_EQ(grid.topRow(), 1);
}

TEST(RecordGrid, PageKeysGoAPageLessOneRowAndStopAtTheEnds) {
    RecordGrid grid("g");
    fill(grid, std::vector<std::vector<std::string>>(25));
    grid.setRowsThatFit(10);
    grid.select(1, 0);
    grid.defaultKey(key::pageDown, 0);
    EXPECT_EQ(grid.row(), 10);
    EXPECT_EQ(grid.topRow(), 1);
    grid.defaultKey(key::pageDown, 0);
    EXPECT_EQ(grid.row(), 19);
    EXPECT_EQ(grid.topRow(), 10);
    grid.defaultKey(key::pageDown, 0);
    EXPECT_EQ(grid.row(), 25);
    grid.defaultKey(key::up, 0);
    grid.defaultKey(key::pageUp, 0);
    EXPECT_EQ(grid.row(), 15);
    EXPECT_EQ(grid.topRow(), 15);
    grid.defaultKey(key::pageUp, 0);
    grid.defaultKey(key::pageUp, 0);
    EXPECT_EQ(grid.row(), 1);
    EXPECT_FALSE(grid.defaultKey(key::left, 0));
}

TEST(RecordGrid, ADraggedColumnIsTold) {
    RecordGrid grid("g");
    fill(grid, {{"a"}});
    int told = -1;
    grid.onAfterUserResize = [&](int, int column) { told = column; };
    grid.userResized(1, 2222);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(grid.columnWidth(1), 2222);
}

}  // namespace
}  // namespace catalogador
