#include "platform/printing/grid_pages.h"

#include <algorithm>
#include <numeric>

#include "platform/controls/record_grid.h"
#include "platform/printing/text_fit.h"

namespace catalogador {

namespace {

constexpr int narrowestColumn = 420;
constexpr int cellMargin = 60;
constexpr int rowMargin = 30;
constexpr int lineThickness = 8;
constexpr std::size_t mostLines = 3;
constexpr Color headerFill{0x00F0E6DE};
constexpr Color lineColor{0x00C8C0B8};
constexpr Color headerLineColor{0x00806850};

int alignOf(int gridAlignment) {
    constexpr int centre = 4;
    constexpr int right = 7;
    if (gridAlignment == centre) return print_align::centre;
    return gridAlignment == right ? print_align::right : print_align::left;
}

std::string cellText(const RecordGrid& grid, int row, int column) {
    if (!grid.columnIsBoolean(column)) return std::string(grid.text(row, column));
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
              grid, document.setup.paper.width - document.setup.left - document.setup.right)),
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
            const int room = std::max(1, width - 2 * cellMargin);
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
            const int align = alignOf(alignmentOf(cell.column));
            int top = top_ + rowMargin;
            for (const std::string& line : cell.lines) {
                putText(line, {left + cellMargin, top, width - 2 * cellMargin, lineHeight}, fit,
                        font, align);
                top += lineHeight;
            }
            left += width;
        }
    }

    void putText(const std::string& text, Rect room, TextFit& fit, std::size_t font, int align) {
        const int width = std::min(fit.width(text), room.width);
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
        const int lineHeight = printing_.measure.lineHeight(document_.fonts[printing_.headerFont]);
        const std::vector<Cell> cells =
            cellsOf(header_, [&](int column) { return grid_.header(column); });
        const int height = static_cast<int>(linesOf(cells)) * lineHeight + 2 * rowMargin;
        const PageSetup& setup = document_.setup;
        page_->boxes.push_back(
            {{setup.left, top_, setup.paper.width - setup.left - setup.right, height}, headerFill});
        putCells(cells, header_, printing_.headerFont, lineHeight, [&](int column) {
            return grid_.visibleRows() > 0 ? grid_.alignment(grid_.visibleRow(0), column) : 0;
        });
        top_ += height;
        putLine(top_, headerLineColor);
        top_ += lineThickness;
    }

    void putRow(int row) {
        const int lineHeight = printing_.measure.lineHeight(document_.fonts[printing_.font]);
        const std::vector<Cell> cells =
            cellsOf(body_, [&](int column) { return cellText(grid_, row, column); });
        const int height =
            static_cast<int>(linesOf(cells)) * lineHeight + 2 * rowMargin + lineThickness;
        if (top_ + height > document_.setup.paper.height - document_.setup.bottom) {
            page_ = &newPage_();
            top_ = document_.setup.top;
            putHeader();
        }
        putCells(cells, body_, printing_.font, lineHeight, [&](int column) {
            constexpr int centre = 4;
            return grid_.columnIsBoolean(column) ? centre : grid_.alignment(row, column);
        });
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
    PrintedPage* page_;
    int top_;
};

}  // namespace

std::vector<int> printedWidths(const RecordGrid& grid, int room) {
    std::vector<int> widths(static_cast<std::size_t>(grid.columns()), 0);
    std::vector<std::size_t> printed;
    for (int column = 0; column < grid.columns(); ++column) {
        const bool extra = column + 1 == grid.columns() && grid.header(column).empty();
        if (grid.columnHidden(column) || extra || grid.columnWidth(column) <= 0) continue;
        printed.push_back(static_cast<std::size_t>(column));
    }
    if (printed.empty()) return widths;
    const int least = std::min(narrowestColumn, room / static_cast<int>(printed.size()));
    double wanted = 0;
    for (const std::size_t column : printed)
        wanted += std::max(least, grid.columnWidth(static_cast<int>(column)));
    // Every column has the least width; what is left of the room is shared by what they want more.
    const double spare = room - static_cast<double>(least) * static_cast<double>(printed.size());
    const double more = wanted - static_cast<double>(least) * static_cast<double>(printed.size());
    int left = room;
    for (const std::size_t column : printed) {
        const int above = std::max(least, grid.columnWidth(static_cast<int>(column))) - least;
        const bool last = column == printed.back();
        widths[column] =
            last ? left : least + static_cast<int>(more > 0 ? spare * above / more : 0);
        left -= widths[column];
    }
    return widths;
}

void printGrid(const RecordGrid& grid, PrintedDocument& document, const GridPrinting& printing,
               const std::function<PrintedPage&()>& newPage) {
    GridPages(grid, document, printing, newPage).print();
}

}  // namespace catalogador
