#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "platform/controls/record_grid.h"
#include "platform/controls/rows/cell_number.h"
#include "runtime/fold_texts.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

/// Texts with accents, other scripts, letters whose capital has another length, bytes that are no
/// UTF-8, zeros, numbers and much that is alike.
class OddTexts {
  public:
    std::string next() {
        static const std::array<std::string, 26> pieces{"a",        "B",
                                                        "García ",  "GARCÍA ",
                                                        "ñ",        "Ñandú",
                                                        "ÿ",        "µ",
                                                        "ß",        "ſ",
                                                        "ı",        "ɐ",
                                                        "ά",        "ς",
                                                        "привет ",  "Привет ",
                                                        "€",        "º",
                                                        "\xC3",     "\xA9",
                                                        "\xE2\xB1", "12",
                                                        "-3,5",     "0.5",
                                                        " ",        "aaaaaaaaaaaaaaaa"};
        std::string text;
        for (auto count = random_() % 5; count > 0; --count)
            text += pieces.at(random_() % pieces.size());
        if (random_() % 40 == 0) text += '\0';
        return text;
    }
    std::size_t number(std::size_t limit) { return random_() % limit; }

  private:
    std::mt19937 random_{5};
};

std::vector<std::string> fill(RecordGrid& grid, std::size_t rows) {
    OddTexts texts;
    std::vector<std::string> cells;
    grid.setFormatString("A|B");
    for (std::size_t i = 0; i < rows; ++i) {
        cells.push_back(texts.next());
        grid.setText(grid.addRow(), 0, cells.back());
    }
    return cells;
}

TEST(LargeLists, TextsOfSameLengthInUpperCaseAreThoseOfUpperCase) {
    OddTexts texts;
    int same = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = texts.next();
        const std::string expected = upperCase(text);
        std::string upper(text.size(), '\0');
        const bool simple = upperCaseOfSameLength(text, upper.data());
        if (simple) {
            EXPECT_EQ(upper, expected) << text;
            ++same;
        } else {
            EXPECT_NE(upperCase(text), upper) << text;
        }
    }
    EXPECT_GT(same, 10000);
}

TEST(LargeLists, AFilterShowsTheRowsThatAreFoundOneByOne) {
    RecordGrid grid("grid");
    const std::vector<std::string> cells = fill(grid, 5000);
    for (const char* text : {"*GARCÍA*",
                             "*A*",
                             "*ÑAND*",
                             "*ПРИВЕТ*",
                             "*Ά*",
                             "*S*",
                             "*I*",
                             "*Μ*",
                             "*G?RC[IÍ]A*",
                             "*#*",
                             "*A*B*",
                             "*",
                             "",
                             "*\xC3*",
                             "*2-3*",
                             "*zz*",
                             "*AAAAAAAAAAAAAAAAGARCÍA *",
                             "*[!A]*",
                             "A*",
                             "*?????*"}) {
        const LikePattern pattern(text);
        grid.filter(pattern);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            // The second column is empty everywhere.
            const bool shown = pattern.matches(upperCase(cells[i])) || pattern.matches("");
            ASSERT_EQ(grid.rowHidden(static_cast<int>(i) + 1), !shown) << text << ": " << cells[i];
        }
    }
}

TEST(LargeLists, ASortGivesTheOrderOfAComparisonOfWholeCells) {
    RecordGrid grid("grid");
    const std::vector<std::string> cells = fill(grid, 5000);
    const auto key = [&](std::size_t i) {
        const auto number = cellNumber(cells[i]);
        const int kind = cells[i].empty() ? 0 : number ? 1 : 2;
        return std::tuple(kind, number.value_or(0), number ? "" : foldCase(cells[i]));
    };
    std::vector<std::size_t> expected(cells.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        expected[i] = i;
        grid.setCode(static_cast<int>(i) + 1, std::to_string(i));
    }
    for (const int order : {sort_order::ascending, sort_order::descending}) {
        grid.sort(0, order);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](std::size_t left, std::size_t right) {
                             return order == sort_order::ascending ? key(left) < key(right)
                                                                   : key(right) < key(left);
                         });
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(grid.code(static_cast<int>(i) + 1), std::to_string(expected[i])) << i;
    }
}

TEST(LargeLists, ACellIsANumberWithPointOrComma) {
    EXPECT_EQ(cellNumber(" -12,50 "), -12.5);
    EXPECT_EQ(cellNumber("+.5"), 0.5);
    EXPECT_EQ(cellNumber("5."), 5);
    EXPECT_EQ(cellNumber("123456789012345678"), 123456789012345678.0);
    EXPECT_EQ(cellNumber("0,1"), 0.1);
    for (const char* text :
         {"", "-", ".", "1,2,3", "1.2,3", "1e5", "inf", "nan", "1 2", "12a", "--1"})
        EXPECT_EQ(cellNumber(text), std::nullopt) << text;
}

TEST(LargeLists, CodesAreFoundWhetherNumbersOrTexts) {
    RecordGrid grid("grid");
    grid.setFormatString("A|B");
    for (const char* code : {"5", "-7", "", "5", "2147483647"}) grid.setCode(grid.addRow(), code);
    EXPECT_EQ(grid.findCode(5), 1);
    EXPECT_EQ(grid.findCode(-7), 2);
    EXPECT_EQ(grid.findCode(2147483647), 5);
    EXPECT_EQ(grid.code(3), "");
    grid.setCode(grid.addRow(), "007");
    EXPECT_EQ(grid.findCode(5), 1);
    EXPECT_EQ(grid.findCode("007"), 6);
    EXPECT_EQ(grid.findCode(7), 6);
    EXPECT_EQ(grid.findCode("7"), 0);
    EXPECT_EQ(grid.code(2), "-7");
    grid.setText(1, 0, "z");
    grid.sort(0, sort_order::ascending);
    EXPECT_EQ(grid.code(grid.findCode(5)), "5");
    EXPECT_EQ(grid.findCode(5), 3);
}

}  // namespace
}  // namespace catalogador
