#include "printing/vs_printer.h"

#include <gtest/gtest.h>

#include "even_font.h"
#include "platform/controls/record_grid.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

class VsPrinterTest : public testing::Test {
  protected:
    EvenFont measure_;
    RecordGrid grid_{"grid"};
    vsPrinter printer_{measure_, {}};
};

TEST_F(VsPrinterTest, TheHeaderStandsInTheTopMarginOfEveryPage) {
    grid_.setFormatString("Código");
    for (int i = 0; i < 150; ++i) grid_.setText(grid_.addRow(), 0, "x");
    printer_.header = "Países";
    printer_.headerFontName = "Tahoma";
    printer_.headerFontSize = 12;
    printer_.startDocument("Países");
    printer_.renderGrid(grid_);
    EXPECT_EQ(printer_.document().title, "Países");
    ASSERT_GT(printer_.pageCount(), 2);
    for (const PrintedPage& page : printer_.document().pages) {
        EXPECT_EQ(page.texts.front().text, "Países");
        EXPECT_LE(page.texts.front().place.top + page.texts.front().place.height, 1440);
        EXPECT_EQ(printer_.document().fonts[page.texts.front().font].points, 12);
    }
}

TEST_F(VsPrinterTest, ALineEndMovesTheGridDown) {
    grid_.setFormatString("Código");
    printer_.startDocument("");
    printer_.renderGrid(grid_);
    const int without = printer_.document().pages[0].texts[0].place.top;
    printer_.startDocument("");
    printer_.write("\r\n");
    printer_.renderGrid(grid_);
    EXPECT_EQ(printer_.document().pages[0].texts[0].place.top, without + EvenFont::height);
}

TEST_F(VsPrinterTest, AnOverlayWritesLeftCentredAndRightOnItsPage) {
    printer_.startDocument("");
    printer_.endDocument();
    printer_.startOverlay(1);
    printer_.moveTo(printer_.marginLeft(), printer_.marginBottomLine() + 150);
    printer_.writeAligned("izq", print_align::left);
    printer_.writeAligned("medio", print_align::centre);
    printer_.writeAligned("1 de 1", print_align::right);
    printer_.endOverlay();
    const auto& texts = printer_.document().pages[0].texts;
    ASSERT_EQ(texts.size(), 3U);
    constexpr int room = 11906 - 2 * 1440;
    EXPECT_EQ(texts[0].place.left, 1440);
    EXPECT_EQ(texts[1].place.left, 1440 + (room - 500) / 2);
    EXPECT_EQ(texts[2].place.left, 1440 + room - 600);
    for (const PrintedText& text : texts) EXPECT_EQ(text.place.top, 16838 - 1440 + 150);
}

TEST_F(VsPrinterTest, PagesAreNumberedEachOnItsOwn) {
    grid_.setFormatString("Código");
    for (int i = 0; i < 140; ++i) grid_.setText(grid_.addRow(), 0, "x");
    printer_.startDocument("");
    printer_.renderGrid(grid_);
    printer_.endDocument();
    ASSERT_EQ(printer_.pageCount(), 3);
    for (int page = 1; page <= 3; ++page) {
        printer_.startOverlay(page);
        printer_.moveTo(printer_.marginLeft(), printer_.marginBottomLine() + 150);
        printer_.writeAligned(std::to_string(page) + " de 3", print_align::right);
        printer_.endOverlay();
    }
    EXPECT_EQ(printer_.document().pages[0].texts.back().text, "1 de 3");
    EXPECT_EQ(printer_.document().pages[1].texts.back().text, "2 de 3");
    EXPECT_EQ(printer_.document().pages[2].texts.back().text, "3 de 3");
}

TEST_F(VsPrinterTest, AHeaderThatIsTooLongEndsInAnEllipsis) {
    printer_.header = std::string(200, 'x');
    printer_.startDocument("");
    const PrintedText& header = printer_.document().pages[0].texts.front();
    EXPECT_TRUE(header.text.ends_with("…"));
    EXPECT_LE(header.place.left + header.place.width, 11906 - 1440);
}

TEST_F(VsPrinterTest, PageSettingThreeRulesOffHeaderAndFooter) {
    printer_.startDocument("");
    EXPECT_TRUE(printer_.document().pages[0].boxes.empty());
    printer_.pageSetting = pageSettingRules;
    printer_.startDocument("");
    const auto& boxes = printer_.document().pages[0].boxes;
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_LT(boxes[0].place.top, 1440);
    EXPECT_GT(boxes[1].place.top, printer_.marginBottomLine());
    EXPECT_LT(boxes[1].place.top, printer_.marginBottomLine() + 150);
}

/// As wide as the font is large.
class GrowingFont : public EvenFont {
  public:
    [[nodiscard]] int width(std::string_view text, const PrintFont& font) const override {
        return static_cast<int>(static_cast<double>(lengthInCharacters(text)) * font.points * 12);
    }
};

TEST_F(VsPrinterTest, ManyColumnsArePrintedSmaller) {
    const GrowingFont growing;
    const auto pointsFor = [&](int columns) {
        RecordGrid grid("grid");
        std::string headers = "Abreviatura";
        for (int column = 1; column < columns; ++column) headers += "|Abreviatura";
        grid.setFormatString(headers);
        vsPrinter printer(growing, {});
        printer.startDocument("");
        printer.renderGrid(grid);
        const PrintedText& text = printer.document().pages[0].texts.front();
        return printer.document().fonts[text.font].points;
    };
    EXPECT_EQ(pointsFor(3), 8);
    EXPECT_EQ(pointsFor(9), 6.5);
    EXPECT_EQ(pointsFor(40), 5);
}

TEST_F(VsPrinterTest, ThereIsNoOverlayOnAPageThatIsNotThere) {
    printer_.startDocument("");
    EXPECT_THROW(printer_.startOverlay(0), RuntimeError);
    EXPECT_THROW(printer_.startOverlay(2), RuntimeError);
    EXPECT_THROW(printer_.writeAligned("x", print_align::left), RuntimeError);
}

TEST_F(VsPrinterTest, TooSmallMarginsAreWidened) {
    PageSetup setup;
    setup.top = setup.bottom = setup.left = setup.right = 0;
    const vsPrinter printer(measure_, setup);
    EXPECT_GT(printer.marginLeft(), 0);
    EXPECT_LT(printer.marginBottomLine() + 150 + EvenFont::height, setup.paper.height);
}

TEST_F(VsPrinterTest, MarginsThatLeaveNoRoomAreGivenUp) {
    PageSetup setup;
    setup.left = setup.top = setup.right = setup.bottom = 9000;
    vsPrinter printer(measure_, setup);
    grid_.setFormatString("Código");
    for (int i = 0; i < 20; ++i) grid_.setText(grid_.addRow(), 0, "x");
    printer.startDocument("");
    printer.renderGrid(grid_);
    EXPECT_EQ(printer.pageCount(), 1);
    EXPECT_LT(printer.marginLeft(), 1440);
}

}  // namespace
}  // namespace catalogador
