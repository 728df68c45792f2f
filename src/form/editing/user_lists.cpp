#include "form/editing/user_lists.h"

#include "form/grid/list_rows.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
/// The column of the list of view 10 that shows whether a code is ticked.
constexpr int tickColumn = 4;
}  // namespace

void appendCode(std::string& list, std::string_view code) {
    if (!list.empty()) list += ",";
    list += code;
}

bool listHasCode(std::string_view list, std::string_view code) {
    const auto enclosed = [](std::string_view text) { return "," + std::string(text) + ","; };
    return containsText(enclosed(list), enclosed(code), Compare::binary);
}

std::string codesInOrder(const RecordGrid& grid) {
    std::string codes;
    for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row)
        appendCode(codes, grid.code(row));
    return codes;
}

std::string untickedCodes(const RecordGrid& grid, std::int32_t code, bool ticked,
                          const Regional& regional) {
    std::string codes;
    for (int row = RecordGrid::fixedRows; row < grid.rows(); ++row) {
        const bool unticked = rowHasCode(grid, row, code, regional)
                                  ? !ticked
                                  : grid.check(row, tickColumn) != CheckState::checked;
        if (unticked) appendCode(codes, grid.code(row));
    }
    return codes;
}

}  // namespace catalogador
