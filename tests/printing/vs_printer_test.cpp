#include "platform/printing/vs_printer.h"

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

}  // namespace
}  // namespace catalogador
