#pragma once
#include <vector>

namespace catalogador {

class RecordGrid;
class TextFit;

/// What is kept free at each side of a cell of that width. All widths are in twips.
int cellMargin(int cellWidth);

/// How narrow each column of the grid may become before the words of its header break, or those of
/// its cells that are not unusually long. 0 for the columns that are not printed: hidden ones, and
/// a last one without a header.
std::vector<int> leastWidths(const RecordGrid& grid, TextFit& body, TextFit& header);

/// The columns' widths on paper, which together fill `room`: in the proportion of the screen,
/// except that none becomes narrower than its least, or, where those do not fit, than an even share
/// of the room. 0 for those whose least is 0.
std::vector<int> printedWidths(const RecordGrid& grid, int room, const std::vector<int>& least);

}  // namespace catalogador
