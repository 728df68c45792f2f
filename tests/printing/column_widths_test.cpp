#include "printing/column_widths.h"

#include <gtest/gtest.h>

#include <numeric>

#include "even_font.h"
#include "platform/controls/record_grid.h"
#include "printing/text_fit.h"

namespace catalogador {
namespace {

using Widths = std::vector<int>;

class ColumnWidthsTest : public testing::Test {
  protected:
    Widths least() {
        TextFit fit(measure_, font_);
        return leastWidths(grid_, fit, fit);
    }

    EvenFont measure_;
    PrintFont font_;
    RecordGrid grid_{"grid"};
};

TEST_F(ColumnWidthsTest, AreInTheProportionOfTheScreen) {
    grid_.setFormatString("a|b|c");
    grid_.setColumnWidth(0, 1000);
    grid_.setColumnWidth(1, 2000);
    grid_.setColumnWidth(2, 4000);
    EXPECT_EQ(printedWidths(grid_, 14000, least()), (Widths{2000, 4000, 8000}));
}

TEST_F(ColumnWidthsTest, LeaveEveryColumnItsLeastAndTheOthersTheRest) {
    grid_.setFormatString("a|b|c");
    grid_.setColumnWidth(0, 100);
    grid_.setColumnWidth(1, 2000);
    grid_.setColumnWidth(2, 6000);
    EXPECT_EQ(printedWidths(grid_, 8500, {500, 500, 500}), (Widths{500, 2000, 6000}));
    EXPECT_EQ(printedWidths(grid_, 8500, {500, 4000, 500}), (Widths{500, 4000, 4000}));
}

TEST_F(ColumnWidthsTest, AreEvenSharesWhereTheRoomIsTooSmall) {
    grid_.setColumns(60);
    grid_.addExtraColumn(90);
    for (int column = 0; column < 60; ++column) grid_.setColumnWidth(column, 1 + column * 100);
    const Widths widths = printedWidths(grid_, 9000, least());
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), 9000);
    for (std::size_t column = 0; column < 60; ++column) EXPECT_EQ(widths[column], 150);
}

TEST_F(ColumnWidthsTest, TheLeastIsTheWidestUsualWord) {
    grid_.setFormatString("Abreviatura|a|b");
    grid_.setText(grid_.addRow(), 1, "uno cuatro");
    grid_.setText(grid_.addRow(), 2, "Superintendencia");
    EXPECT_EQ(least(), (Widths{1100 + 120, 600 + 120, 420}));
}

TEST_F(ColumnWidthsTest, HiddenColumnsAndTheOneAtTheEndGetNothing) {
    grid_.setFormatString("a|b");
    grid_.addExtraColumn(90);
    grid_.setColumnHidden(0, true);
    EXPECT_EQ(printedWidths(grid_, 5000, least()), (Widths{0, 5000, 0}));
    grid_.setColumnHidden(1, true);
    EXPECT_EQ(printedWidths(grid_, 5000, least()), (Widths{0, 0, 0}));
}

TEST_F(ColumnWidthsTest, TheLastColumnIsPrintedWithoutAHeaderTooUnlessItIsTheExtraOne) {
    grid_.setFormatString("a|");
    grid_.setText(grid_.addRow(), 1, "uno cuatro");
    EXPECT_EQ(least(), (Widths{420, 600 + 120}));
    grid_.addExtraColumn(90);
    EXPECT_EQ(least(), (Widths{420, 600 + 120, 0}));
}

}  // namespace
}  // namespace catalogador
