#include "platform/printing/grid_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "even_font.h"
#include "platform/controls/record_grid.h"
#include "platform/printing/vs_printer.h"

namespace catalogador {
namespace {

class GridPagesTest : public testing::Test {
  protected:
    GridPagesTest() {
        grid_.setFormatString("Código|Nombre|Vigente");
        grid_.setColumns(4);
        grid_.setColumnWidth(3, 90);
        grid_.setColumnBoolean(2, true);
    }

    void addRows(int count, const std::string& name = "Nombre") {
        for (int i = 0; i < count; ++i) {
            const int row = grid_.addRow();
            grid_.setText(row, 0, std::to_string(row));
            grid_.setText(row, 1, name);
            grid_.setCheck(row, 2, CheckState::checked);
            grid_.setAlignment(row, 0, 7);
        }
    }
    const std::vector<PrintedPage>& print() {
        printer_.startDocument("Lista");
        printer_.renderGrid(grid_);
        printer_.endDocument();
        return printer_.document().pages;
    }
    static bool has(const PrintedPage& page, const std::string& text) {
        return std::ranges::any_of(page.texts,
                                   [&](const PrintedText& each) { return each.text == text; });
    }
    static std::vector<std::string> texts(const PrintedPage& page) {
        std::vector<std::string> found;
        for (const PrintedText& text : page.texts) found.push_back(text.text);
        return found;
    }

    EvenFont measure_;
    RecordGrid grid_{"grid"};
    vsPrinter printer_{measure_, {}};
};

TEST_F(GridPagesTest, WithoutRowsTheHeaderStandsOnOnePage) {
    const auto& pages = print();
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(texts(pages[0]), (std::vector<std::string>{"Código", "Nombre", "Vigente"}));
}

TEST_F(GridPagesTest, EveryPageBeginsWithTheHeaderAndEveryRowIsPrintedOnce) {
    addRows(200);
    const auto& pages = print();
    ASSERT_GT(pages.size(), 3U);
    std::vector<std::string> codes;
    for (const PrintedPage& page : pages) {
        EXPECT_EQ(page.texts.front().text, "Código");
        for (const PrintedText& text : page.texts)
            if (text.align == print_align::right && text.text != "Código")
                codes.push_back(text.text);
    }
    ASSERT_EQ(codes.size(), 200U);
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ(codes[static_cast<std::size_t>(i)], std::to_string(i + 1));
}

TEST_F(GridPagesTest, NoTextLeavesTheMarginsOrCoversAnother) {
    addRows(120,
            "Un nombre muy largo que hay que partir en varias líneas, y que aun así no cabe "
            "entero en las tres que una celda puede tener");
    for (const PrintedPage& page : print()) {
        const PageSetup& setup = printer_.document().setup;
        for (const PrintedText& text : page.texts) {
            EXPECT_GE(text.place.left, setup.left) << text.text;
            EXPECT_LE(text.place.left + text.place.width, setup.paper.width - setup.right);
            EXPECT_LE(text.place.top + text.place.height, setup.paper.height - setup.bottom);
        }
        for (std::size_t i = 0; i < page.texts.size(); ++i)
            for (std::size_t j = i + 1; j < page.texts.size(); ++j) {
                const Rect& a = page.texts[i].place;
                const Rect& b = page.texts[j].place;
                const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                                   a.top + a.height <= b.top || b.top + b.height <= a.top;
                EXPECT_TRUE(apart) << page.texts[i].text << " / " << page.texts[j].text;
            }
    }
}

TEST_F(GridPagesTest, ARowIsNeverDividedBetweenPages) {
    addRows(90,
            "Un nombre muy largo que hay que partir en varias líneas, y que aun así no cabe "
            "entero en las tres que una celda puede tener de ninguna manera que se intente");
    for (const PrintedPage& page : print()) {
        std::size_t codes = 0;
        std::size_t lines = 0;
        for (const PrintedText& text : page.texts) {
            if (text.align == print_align::right) ++codes;
            if (text.align == print_align::left) ++lines;
        }
        // One code and three lines of the name a row; the header row has three texts.
        EXPECT_EQ(lines, (codes - 1) * 3 + 2);
    }
}

TEST_F(GridPagesTest, HiddenRowsAndColumnsAreLeftOut) {
    addRows(3);
    grid_.setText(2, 1, "oculto");
    grid_.setRowHidden(2, true);
    grid_.setColumnHidden(2, true);
    const auto& pages = print();
    EXPECT_EQ(texts(pages[0]),
              (std::vector<std::string>{"Código", "Nombre", "1", "Nombre", "3", "Nombre"}));
}

TEST_F(GridPagesTest, ChecksAreDrawnAsBoxes) {
    addRows(1);
    grid_.setCheck(grid_.addRow(), 2, CheckState::unchecked);
    grid_.addRow();
    const auto& pages = print();
    EXPECT_TRUE(has(pages[0], "☑"));
    EXPECT_TRUE(has(pages[0], "☐"));
    EXPECT_EQ(std::ranges::count_if(pages[0].texts,
                                    [](const PrintedText& text) { return text.text == "☐"; }),
              1);
}

TEST(PrintedWidths, FillTheRoomInTheProportionOfTheScreen) {
    RecordGrid grid("grid");
    grid.setFormatString("a|b|c");
    grid.setColumnWidth(0, 1000);
    grid.setColumnWidth(1, 2000);
    grid.setColumnWidth(2, 4000);
    const std::vector<int> widths = printedWidths(grid, 14000);
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), 14000);
    EXPECT_LT(widths[0], widths[1]);
    EXPECT_LT(widths[1], widths[2]);
}

TEST(PrintedWidths, KeepAManyColumnsAllOnThePage) {
    RecordGrid grid("grid");
    grid.setColumns(60);
    for (int column = 0; column < 60; ++column) grid.setColumnWidth(column, column * 100);
    const std::vector<int> widths = printedWidths(grid, 9000);
    EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), 9000);
    for (std::size_t column = 1; column < 59; ++column) EXPECT_GE(widths[column], 150);
}

}  // namespace
}  // namespace catalogador
