#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/controls/record_grid.h"

namespace catalogador {
namespace {

using Texts = std::vector<std::string>;

Texts sorted(const Texts& cells, int order) {
    RecordGrid grid("g");
    grid.setFormatString("A");
    for (const std::string& cell : cells) grid.setText(grid.addRow(), 0, cell);
    grid.sort(0, order);
    Texts result;
    for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row)
        result.emplace_back(grid.text(row, 0));
    return result;
}

TEST(RecordGridOrder, EmptyCellsComeBeforeNumbersAndNumbersBeforeTexts) {
    const Texts wanted{"", "-3", "9", "10", "1a", "b"};
    Texts cells = wanted;
    // Whatever the order they come in, or there would be no order among them.
    std::sort(cells.begin(), cells.end());
    do {
        ASSERT_EQ(sorted(cells, sort_order::ascending), wanted);
    } while (std::next_permutation(cells.begin(), cells.end()));
}

TEST(RecordGridOrder, DescendingTurnsEverythingRound) {
    EXPECT_EQ(sorted({"2", "", "x", "11"}, sort_order::descending), (Texts{"x", "11", "2", ""}));
}

TEST(RecordGridOrder, ACommaMayStandBeforeTheDecimals) {
    EXPECT_EQ(sorted({"10", "1,5", "9,25", "-0,5"}, sort_order::ascending),
              (Texts{"-0,5", "1,5", "9,25", "10"}));
}

TEST(RecordGridOrder, ACellWithTwoSeparatorsIsText) {
    EXPECT_EQ(sorted({"1,2,3", "5", "1.2,3"}, sort_order::ascending),
              (Texts{"5", "1,2,3", "1.2,3"}));
}

TEST(RecordGridOrder, WordsThatNameNumbersAreTexts) {
    EXPECT_EQ(sorted({"nan", "1", "inf", "a", "infinity"}, sort_order::ascending),
              (Texts{"1", "a", "inf", "infinity", "nan"}));
}

TEST(RecordGridOrder, ASignBeforeANumberCounts) {
    EXPECT_EQ(sorted({"+3", "2", "-4", "+x"}, sort_order::ascending),
              (Texts{"-4", "2", "+3", "+x"}));
}

}  // namespace
}  // namespace catalogador
