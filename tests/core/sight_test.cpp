#include <gtest/gtest.h>

#include <string>

#include "platform/controls/keys.h"
#include "platform/controls/record_grid.h"

namespace catalogador {
namespace {

/// A list of 100 rows, ten of which fit.
class SightTest : public ::testing::Test {
  protected:
    SightTest() {
        grid.setFormatString("A|B");
        for (int row = 1; row <= 100; ++row)
            grid.setText(grid.addRow(), 0, "row " + std::to_string(row));
        grid.setRowsThatFit(10);
    }
    RecordGrid grid{"g"};
};

TEST_F(SightTest, ASelectedRowThatIsOutOfSightBecomesTheFirstOneShown) {
    grid.select(50, 0);
    EXPECT_EQ(grid.topRow(), 50);
    grid.select(1, 0);
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(SightTest, ASelectedRowInSightLeavesTheListWhereItIs) {
    grid.setTopRow(20);
    grid.select(29, 0);
    EXPECT_EQ(grid.topRow(), 20);
}

TEST_F(SightTest, ARowThatTheLowerEdgeCutsStaysUnderTheMouse) {
    grid.userClicked(MouseButton::left, 11, 0);
    EXPECT_EQ(grid.topRow(), 1);
    grid.userClicked(MouseButton::left, 12, 0);
    EXPECT_EQ(grid.topRow(), 12);
}

TEST_F(SightTest, AHiddenRowIsSelectedWithoutScrolling) {
    grid.setRowHidden(60, true);
    grid.select(60, 0);
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(SightTest, TheListScrollsByNoMoreThanItTakes) {
    grid.bringIntoSight(11);
    EXPECT_EQ(grid.topRow(), 2);
    grid.bringIntoSight(1);
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(SightTest, ASmallerListKeepsTheSelectedRowInSight) {
    grid.select(10, 0);
    EXPECT_EQ(grid.topRow(), 1);
    grid.setRowsThatFit(4);
    EXPECT_EQ(grid.topRow(), 7);
}

TEST_F(SightTest, ASmallerListStaysWhereTheUserScrolledAwayFromTheSelectedRow) {
    grid.select(1, 0);
    grid.setTopRow(50);
    grid.setRowsThatFit(4);
    EXPECT_EQ(grid.topRow(), 50);
}

TEST_F(SightTest, FromARowThatTheFilterHidesEveryArrowBeginsWithTheFirstMatch) {
    for (const int arrow : {key::down, key::up, key::pageDown, key::pageUp}) {
        grid.showAllRows();
        grid.select(40, 0);
        grid.filter(LikePattern("*ROW 7*"));
        grid.defaultKey(arrow, 0);
        EXPECT_EQ(grid.row(), 7) << arrow;
    }
}

TEST_F(SightTest, LettersGoToTheNextRowThatBeginsWithThem) {
    for (const char letter : std::string("row 4"))
        grid.defaultCharacter(static_cast<char32_t>(letter));
    EXPECT_EQ(grid.row(), 1) << "a blank is no letter of the list, which it would open";
}

TEST_F(SightTest, LettersAreLookedForInTheSortedColumn) {
    grid.setText(70, 1, "Óscar");
    grid.sort(1, sort_order::descending);
    grid.select(100, 0);
    grid.defaultCharacter(U'o');
    EXPECT_EQ(grid.text(grid.row(), 1), "Óscar");
    EXPECT_TRUE(grid.rowIsShown(grid.row()));
}

TEST_F(SightTest, ARowIsCopiedAsItIsShown) {
    grid.setText(3, 1, "three");
    EXPECT_EQ(grid.rowText(3), "row 3\tthree");
    grid.setCheck(3, 1, CheckState::checked);
    EXPECT_EQ(grid.rowText(3), "row 3\t1");
    grid.setColumnHidden(0, true);
    EXPECT_EQ(grid.rowText(3), "1");
    EXPECT_EQ(grid.cellText(4, 0), "row 4");
}

}  // namespace
}  // namespace catalogador
