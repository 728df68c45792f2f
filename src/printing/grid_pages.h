#pragma once
#include <functional>

#include "platform/printed_document.h"

namespace catalogador {

class RecordGrid;

/// What a grid looks like on paper, besides what it holds.
struct GridPrinting {
    const FontMeasure& measure;
    std::size_t font = 0;
    std::size_t headerFont = 0;
    /// Where the first page has room from, in twips from the page's corner.
    int top = 0;
};

/// Appends the rows that the grid shows to the last page of the document and to as many new ones as
/// they need; `newPage` makes one. Every page begins with the header row, no row is divided between
/// two pages, and no text leaves its cell.
void printGrid(const RecordGrid& grid, PrintedDocument& document, const GridPrinting& printing,
               const std::function<PrintedPage&()>& newPage);

}  // namespace catalogador
