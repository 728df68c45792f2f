#include "printing/grid_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "even_font.h"
#include "platform/controls/record_grid.h"
#include "printing/vs_printer.h"

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
            grid_.setColumnAlignment(0, 7);
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

    /// A text's place is where it is drawn, so it is held against its measured width as well.
    void expectNothingOverlaps() const {
        const PageSetup& setup = printer_.document().setup;
        for (const PrintedPage& page : printer_.document().pages)
            for (std::size_t i = 0; i < page.texts.size(); ++i) {
                const auto& [text, a, font, align] = page.texts[i];
                EXPECT_EQ(a.width, measure_.width(text, {}));
                EXPECT_GE(a.left, setup.left) << text;
                EXPECT_LE(a.left + a.width, setup.paper.width - setup.right) << text;
                EXPECT_LE(a.top + a.height, setup.paper.height - setup.bottom) << text;
                for (std::size_t j = i + 1; j < page.texts.size(); ++j) {
                    const Rect& b = page.texts[j].place;
                    const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                                       a.top + a.height <= b.top || b.top + b.height <= a.top;
                    EXPECT_TRUE(apart) << text << " / " << page.texts[j].text;
                }
            }
    }
    [[nodiscard]] const PrintedText& find(const std::string& text) const {
        for (const PrintedText& each : printer_.document().pages.front().texts)
            if (each.text == text) return each;
        throw std::out_of_range(text);
    }

    static constexpr const char* longName =
        "Un nombre muy largo que hay que partir en varias líneas, y que aun así no cabe entero en "
        "las tres que una celda puede tener de ninguna manera que se intente";

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
    addRows(120, longName);
    print();
    expectNothingOverlaps();
}

TEST_F(GridPagesTest, NoTextLeavesItsCellHoweverManyColumnsThereAre) {
    for (const int columns : {12, 40, 300}) {
        grid_.setColumns(0);
        grid_.setColumns(columns);
        grid_.clearRows();
        addRows(3, longName);
        for (int column = 3; column < columns; ++column) grid_.setText(1, column, "123456789");
        print();
        expectNothingOverlaps();
    }
}

TEST_F(GridPagesTest, ARowIsNeverDividedBetweenPages) {
    addRows(90, longName);
    for (const PrintedPage& page : print()) {
        std::size_t codes = 0;
        std::size_t lines = 0;
        for (const PrintedText& text : page.texts) {
            if (text.align == print_align::right) ++codes;
            if (text.align == print_align::left) ++lines;
        }
        // One code and three lines of the name a row, and the header row.
        EXPECT_EQ(lines, (codes - 1) * 3 + 1);
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

TEST_F(GridPagesTest, AlignmentCodesGoByThrees) {
    const std::vector<std::pair<int, int>> codes{{0, print_align::left},   {2, print_align::left},
                                                 {3, print_align::centre}, {5, print_align::centre},
                                                 {6, print_align::right},  {8, print_align::right}};
    for (const auto& [code, align] : codes) {
        grid_.clearRows();
        addRows(1, "x");
        grid_.setColumnAlignment(1, code);
        print();
        EXPECT_EQ(find("x").align, align) << code;
        EXPECT_EQ(find("Nombre").align, align) << code;
    }
    EXPECT_EQ(find("Vigente").align, print_align::centre);
}

TEST_F(GridPagesTest, WithoutRowsTheHeaderIsAlignedAsItsColumnWillBe) {
    grid_.setHeaderData(0, 8);
    print();
    EXPECT_EQ(find("Código").align, print_align::right);
    EXPECT_EQ(find("Nombre").align, print_align::left);
}

TEST_F(GridPagesTest, NeitherHeadersNorUsualWordsAreBroken) {
    grid_.setColumnWidth(0, 200);
    grid_.setColumnWidth(1, 20000);
    addRows(1);
    grid_.setText(1, 0, "1234567890");
    print();
    EXPECT_EQ(find("Código").place.width, 6 * EvenFont::characterWidth);
    EXPECT_EQ(find("1234567890").place.width, 10 * EvenFont::characterWidth);
}

}  // namespace
}  // namespace catalogador
