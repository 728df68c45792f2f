#include "printing/column_widths.h"

#include <algorithm>

#include "platform/controls/record_grid.h"
#include "printing/text_fit.h"

namespace catalogador {

namespace {

constexpr int usualMargin = 60;
constexpr int narrowestColumn = 420;
/// Words of the cells that are wider may break; an amount of millions is not.
constexpr int widestUsualWord = 1400;
/// So many rows, spread over the list, stand for all of them.
constexpr int rowsLookedAt = 200;

bool isPrinted(const RecordGrid& grid, int column) {
    return column < grid.listColumns() && !grid.columnHidden(column) &&
           grid.columnWidth(column) > 0;
}

int widestUsualWordOf(const RecordGrid& grid, int column, TextFit& body) {
    int widest = 0;
    const int rows = grid.visibleRows();
    const int step = std::max(1, rows / rowsLookedAt);
    for (int n = 0; n < rows; n += step) {
        const int width = body.widestWord(grid.text(grid.visibleRow(n), column), widestUsualWord);
        widest = std::max(widest, width);
    }
    return widest;
}

/// What a column gets of the page's width.
struct Share {
    std::size_t column = 0;
    int wanted = 0;
    double least = 0;
    double given = 0;
    bool atLeast = false;
};

/// Divides the room in the proportion of what is wanted; who would get less than the least gets
/// that, and the others divide what remains.
void share(std::vector<Share>& shares, double room) {
    double least = 0;
    for (const Share& each : shares) least += each.least;
    if (least > room)
        for (Share& each : shares)
            each.least = std::min(each.least, room / static_cast<double>(shares.size()));
    for (bool settled = false; !settled;) {
        double remaining = room;
        double wanted = 0;
        for (const Share& each : shares) {
            if (each.atLeast)
                remaining -= each.least;
            else
                wanted += each.wanted;
        }
        settled = true;
        for (Share& each : shares) {
            each.given = each.atLeast ? each.least : remaining * each.wanted / wanted;
            if (each.given >= each.least) continue;
            each.atLeast = true;
            settled = false;
        }
    }
}

}  // namespace

int cellMargin(int cellWidth) {
    constexpr int narrow = 8;
    return std::min(usualMargin, cellWidth / narrow);
}

std::vector<int> leastWidths(const RecordGrid& grid, TextFit& body, TextFit& header) {
    std::vector<int> least(static_cast<std::size_t>(grid.columns()), 0);
    for (int column = 0; column < grid.columns(); ++column) {
        if (!isPrinted(grid, column)) continue;
        int word = header.widestWord(grid.header(column));
        if (!grid.columnHasChecks(column))
            word = std::max(word, widestUsualWordOf(grid, column, body));
        least[static_cast<std::size_t>(column)] = std::max(narrowestColumn, word + 2 * usualMargin);
    }
    return least;
}

std::vector<int> printedWidths(const RecordGrid& grid, int room, const std::vector<int>& least) {
    std::vector<int> widths(least.size(), 0);
    std::vector<Share> shares;
    for (std::size_t column = 0; column < least.size(); ++column)
        if (least[column] > 0)
            shares.push_back({column, grid.columnWidth(static_cast<int>(column)),
                              static_cast<double>(least[column])});
    share(shares, room);
    int left = room;
    for (const Share& each : shares) {
        const bool last = &each == &shares.back();
        widths[each.column] = last ? left : static_cast<int>(each.given);
        left -= widths[each.column];
    }
    return widths;
}

}  // namespace catalogador
