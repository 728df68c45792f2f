#include "adapters/script/rows.h"

#include <algorithm>

namespace catalogador::script {

namespace {

Json checkOf(const RecordGrid& grid, int row, int column) {
    const CheckState state = grid.check(row, column);
    if (state == CheckState::none) return nullptr;
    return static_cast<int>(state);
}

Json rowOf(const RecordGrid& grid, int row) {
    Json cells = Json::array();
    Json checks = Json::array();
    Json align = Json::array();
    for (int column = 0; column < grid.listColumns(); ++column) {
        cells.push_back(grid.text(row, column));
        checks.push_back(checkOf(grid, row, column));
        align.push_back(grid.alignment(row, column));
    }
    return {{"row", row},
            {"code", grid.code(row)},
            {"hidden", grid.rowHidden(row)},
            {"cells", std::move(cells)},
            {"checks", std::move(checks)},
            {"align", std::move(align)}};
}

}  // namespace

void printRows(Transcript& transcript, const RecordGrid& grid, int first, int count) {
    std::ostream& out = transcript.stream();
    const int left = grid.rows() - first;
    out << R"({"event":"rows","rows":[)";
    for (int row = first; row < first + std::min(left, count); ++row) {
        if (row > first) out << ',';
        out << lineOf(rowOf(grid, row));
    }
    out << "]}\n" << std::flush;
}

}  // namespace catalogador::script
