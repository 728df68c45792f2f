#include "printing/vs_printer.h"

#include <algorithm>
#include <numeric>

#include "platform/controls/record_grid.h"
#include "printing/column_widths.h"
#include "printing/grid_pages.h"
#include "printing/text_fit.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

constexpr int leastTopMargin = 900;
constexpr int leastBottomMargin = 560;
constexpr int leastSideMargin = 280;
constexpr int leastRoom = 1440;
constexpr double smallestGridFont = 5;
constexpr double fontStep = 0.5;
constexpr int headerGap = 140;
constexpr int ruleGap = 90;
constexpr int ruleThickness = 12;
constexpr Color ruleColor{0x00806850};

}  // namespace

vsPrinter::vsPrinter(const FontMeasure& measure, PageSetup setup) : measure_(measure) {
    setup.top = std::max(setup.top, leastTopMargin);
    setup.bottom = std::max(setup.bottom, leastBottomMargin);
    setup.left = std::max(setup.left, leastSideMargin);
    setup.right = std::max(setup.right, leastSideMargin);
    if (setup.paper.width - setup.left - setup.right < leastRoom)
        setup.left = setup.right = leastSideMargin;
    if (setup.paper.height - setup.top - setup.bottom < leastRoom) {
        setup.top = leastTopMargin;
        setup.bottom = leastBottomMargin;
    }
    document_.setup = setup;
}

std::size_t vsPrinter::fontOf(const PrintFont& font) {
    const auto same = [&](const PrintFont& known) {
        return known.name == font.name && known.points == font.points && known.bold == font.bold;
    };
    const auto found = std::ranges::find_if(document_.fonts, same);
    if (found != document_.fonts.end())
        return static_cast<std::size_t>(found - document_.fonts.begin());
    document_.fonts.push_back(font);
    return document_.fonts.size() - 1;
}

void vsPrinter::putRule(PrintedPage& page, int top) const {
    const PageSetup& setup = document_.setup;
    page.boxes.push_back(
        {{setup.left, top, setup.paper.width - setup.left - setup.right, ruleThickness},
         ruleColor});
}

PrintedPage& vsPrinter::newPage() {
    const PageSetup& setup = document_.setup;
    PrintedPage& page = document_.pages.emplace_back();
    if (!header.empty()) {
        const std::size_t font = fontOf({headerFontName, headerFontSize, false});
        const int height = measure_.lineHeight(document_.fonts[font]);
        TextFit fit(measure_, document_.fonts[font]);
        const int room = setup.paper.width - setup.left - setup.right;
        for (const std::string& line : fit.lines(header, room, 1))
            page.texts.push_back(
                {line,
                 {setup.left, setup.top - headerGap - height, fit.width(line), height},
                 font,
                 print_align::left});
    }
    if (pageSetting == pageSettingRules) {
        putRule(page, setup.top - ruleGap);
        putRule(page, marginBottomLine() + ruleGap);
    }
    y_ = setup.top;
    return page;
}

void vsPrinter::startDocument(const std::string& title) {
    document_.title = replacingInvalidBytes(title);
    document_.pages.clear();
    newPage();
}

void vsPrinter::write(std::string_view text) {
    const std::size_t font = fontOf({fontName, fontSize, false});
    for (std::size_t at = text.find("\r\n"); at != std::string_view::npos;
         at = text.find("\r\n", at + 2))
        y_ += measure_.lineHeight(document_.fonts[font]);
}

double vsPrinter::gridFontSize(const RecordGrid& grid) const {
    const int room = document_.setup.paper.width - document_.setup.left - document_.setup.right;
    double size = fontSize;
    for (; size > smallestGridFont; size -= fontStep) {
        const PrintFont font{fontName, size, false};
        const PrintFont bold{fontName, size, true};
        TextFit body(measure_, font);
        TextFit headers(measure_, bold);
        const std::vector<int> least = leastWidths(grid, body, headers);
        if (std::accumulate(least.begin(), least.end(), 0) <= room) break;
    }
    return size;
}

void vsPrinter::renderGrid(const RecordGrid& grid) {
    const double size = gridFontSize(grid);
    GridPrinting printing{measure_};
    printing.font = fontOf({fontName, size, false});
    printing.headerFont = fontOf({fontName, size, true});
    printing.top = y_;
    // Known before the pages are made, since a page that adds a font moves the others.
    fontOf({headerFontName, headerFontSize, false});
    printGrid(grid, document_, printing, [this]() -> PrintedPage& { return newPage(); });
}

void vsPrinter::endDocument() {
    overlay_ = nullptr;
}

int vsPrinter::pageCount() const {
    return static_cast<int>(document_.pages.size());
}

int vsPrinter::marginBottomLine() const {
    return document_.setup.paper.height - document_.setup.bottom;
}

void vsPrinter::startOverlay(int page) {
    if (page < 1 || page > pageCount())
        throw RuntimeError(error_number::subscriptOutOfRange, "There is no such page");
    overlay_ = &document_.pages[static_cast<std::size_t>(page) - 1];
}

void vsPrinter::moveTo(int x, int y) {
    x_ = x;
    y_ = y;
}

void vsPrinter::writeAligned(const std::string& text, int align) {
    if (overlay_ == nullptr)
        throw RuntimeError(error_number::objectNotSet, "No page is open for writing");
    const std::size_t font = fontOf({fontName, fontSize, false});
    const int room = document_.setup.paper.width - document_.setup.right - x_;
    const int width = std::min(measure_.width(text, document_.fonts[font]), room);
    int left = x_;
    if (align == print_align::right) left += room - width;
    if (align == print_align::centre) left += (room - width) / 2;
    overlay_->texts.push_back(
        {text, {left, y_, width, measure_.lineHeight(document_.fonts[font])}, font, align});
}

void vsPrinter::endOverlay() {
    overlay_ = nullptr;
}

}  // namespace catalogador
