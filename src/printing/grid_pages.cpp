#include "printing/grid_pages.h"

#include <algorithm>
#include <array>

#include "platform/controls/record_grid.h"
#include "printing/column_widths.h"
#include "printing/text_fit.h"

namespace catalogador {

namespace {

constexpr int rowMargin = 30;
constexpr int lineThickness = 8;
constexpr std::size_t mostLines = 3;
constexpr Color headerFill{0x00F0E6DE};
constexpr Color lineColor{0x00C8C0B8};
constexpr Color headerLineColor{0x00806850};

int alignOf(int gridAlignment) {
    // The codes go by threes: left, centred, right; which of the three tells top from bottom.
    constexpr int codesPerSide = 3;
    constexpr std::array sides{print_align::left, print_align::centre, print_align::right};
    const int last = static_cast<int>(sides.size()) - 1;
    return sides[static_cast<std::size_t>(std::clamp(gridAlignment / codesPerSide, 0, last))];
}

std::string cellText(const RecordGrid& grid, int row, int column) {
    if (!grid.columnHasChecks(column)) return std::string(grid.text(row, column));
    const CheckState state = grid.check(row, column);
    if (state == CheckState::none) return "";
    return state == CheckState::checked ? "☑" : "☐";
}

/// Puts rows on pages, one under the other.
class GridPages {
  public:
    GridPages(const RecordGrid& grid, PrintedDocument& document, const GridPrinting& printing,
              const std::function<PrintedPage&()>& newPage)
        : grid_(grid),
          document_(document),
          printing_(printing),
          newPage_(newPage),
          body_(printing.measure, document.fonts[printing.font]),
          header_(printing.measure, document.fonts[printing.headerFont]),
          widths_(printedWidths(
              grid, document.setup.paper.width - document.setup.left - document.setup.right,
              leastWidths(grid, body_, header_))),
          lineHeight_(printing.measure.lineHeight(document.fonts[printing.font])),
          headerLineHeight_(printing.measure.lineHeight(document.fonts[printing.headerFont])),
          page_(&document.pages.back()),
          top_(printing.top) {}

    void print() {
        putHeader();
        const int rows = grid_.visibleRows();
        for (int n = 0; n < rows; ++n) putRow(grid_.visibleRow(n));
    }

  private:
    struct Cell {
        int column = 0;
        std::vector<std::string> lines;
    };

    std::vector<Cell> cellsOf(TextFit& fit, const std::function<std::string(int)>& textOf) {
        std::vector<Cell> cells;
        for (int column = 0; column < grid_.columns(); ++column) {
            const int width = widths_[static_cast<std::size_t>(column)];
            if (width == 0) continue;
            const int room = width - 2 * cellMargin(width);
            cells.push_back({column, fit.lines(textOf(column), room, mostLines)});
        }
        return cells;
    }

    static std::size_t linesOf(const std::vector<Cell>& cells) {
        std::size_t lines = 1;
        for (const Cell& cell : cells) lines = std::max(lines, cell.lines.size());
        return lines;
    }

    void putCells(const std::vector<Cell>& cells, TextFit& fit, std::size_t font, int lineHeight,
                  const std::function<int(int)>& alignmentOf) {
        int left = document_.setup.left;
        for (const Cell& cell : cells) {
            const int width = widths_[static_cast<std::size_t>(cell.column)];
            const int margin = cellMargin(width);
            const int align = grid_.columnHasChecks(cell.column)
                                  ? print_align::centre
                                  : alignOf(alignmentOf(cell.column));
            int top = top_ + rowMargin;
            for (const std::string& line : cell.lines) {
                putText(line, {left + margin, top, width - 2 * margin, lineHeight}, fit, font,
                        align);
                top += lineHeight;
            }
            left += width;
        }
    }

    void putText(const std::string& text, Rect room, TextFit& fit, std::size_t font, int align) {
        const int width = fit.width(text);
        if (align == print_align::right) room.left += room.width - width;
        if (align == print_align::centre) room.left += (room.width - width) / 2;
        room.width = width;
        page_->texts.push_back({text, room, font, align});
    }

    void putLine(int top, Color color) {
        const PageSetup& setup = document_.setup;
        page_->boxes.push_back(
            {{setup.left, top, setup.paper.width - setup.left - setup.right, lineThickness},
             color});
    }

    void putHeader() {
        const std::vector<Cell> cells =
            cellsOf(header_, [&](int column) { return grid_.header(column); });
        const int height = static_cast<int>(linesOf(cells)) * headerLineHeight_ + 2 * rowMargin;
        const PageSetup& setup = document_.setup;
        page_->boxes.push_back(
            {{setup.left, top_, setup.paper.width - setup.left - setup.right, height}, headerFill});
        // The header's own code is no longer the alignment once the header was clicked.
        putCells(cells, header_, printing_.headerFont, headerLineHeight_, [&](int column) {
            return grid_.visibleRows() > 0 ? grid_.alignment(grid_.visibleRow(0), column)
                                           : static_cast<int>(grid_.headerData(column).value_or(0));
        });
        top_ += height;
        putLine(top_, headerLineColor);
        top_ += lineThickness;
    }

    void putRow(int row) {
        const std::vector<Cell> cells =
            cellsOf(body_, [&](int column) { return cellText(grid_, row, column); });
        const int height =
            static_cast<int>(linesOf(cells)) * lineHeight_ + 2 * rowMargin + lineThickness;
        if (top_ + height > document_.setup.paper.height - document_.setup.bottom) {
            page_ = &newPage_();
            top_ = document_.setup.top;
            putHeader();
        }
        putCells(cells, body_, printing_.font, lineHeight_,
                 [&](int column) { return grid_.alignment(row, column); });
        top_ += height;
        putLine(top_ - lineThickness, lineColor);
    }

    const RecordGrid& grid_;
    PrintedDocument& document_;
    const GridPrinting& printing_;
    const std::function<PrintedPage&()>& newPage_;
    TextFit body_;
    TextFit header_;
    std::vector<int> widths_;
    int lineHeight_;
    int headerLineHeight_;
    PrintedPage* page_;
    int top_;
};

}  // namespace

void printGrid(const RecordGrid& grid, PrintedDocument& document, const GridPrinting& printing,
               const std::function<PrintedPage&()>& newPage) {
    GridPages(grid, document, printing, newPage).print();
}

}  // namespace catalogador
