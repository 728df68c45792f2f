#pragma once
#include "adapters/script/transcript.h"
#include "platform/controls/record_grid.h"

namespace catalogador::script {

/// Prints the "rows" event: `count` rows of the grid from row number `first` on, hidden ones
/// included, without the narrow last column, which carries no data. Rows beyond the last one are
/// left out.
void printRows(Transcript& transcript, const RecordGrid& grid, int first, int count);

}  // namespace catalogador::script
