#include "adapters/export/shown_rows.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "runtime/error.h"

namespace catalogador::exporting {

namespace {

constexpr int exactDigits = 15;
constexpr int rowsBetweenTells = 4096;
constexpr std::int32_t interruptedByUser = 18;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

int decimalsOf(std::string_view text, const Regional& regional) {
    const std::size_t point = text.find(regional.decimal);
    if (point == std::string_view::npos) return 0;
    return static_cast<int>(text.size() - point - regional.decimal.size());
}

}  // namespace

std::vector<int> shownColumns(const RecordGrid& grid) {
    std::vector<int> columns;
    for (int column = 0; column < grid.columns(); ++column)
        if (!grid.columnHidden(column)) columns.push_back(column);
    return columns;
}

std::optional<double> plainNumber(std::string_view text, const Regional& regional) {
    std::string number;
    if (text.starts_with('-')) {
        number = "-";
        text.remove_prefix(1);
    }
    const std::size_t point = text.find(regional.decimal);
    const std::string_view whole = text.substr(0, point);
    const std::string_view part = point == std::string_view::npos
                                      ? std::string_view()
                                      : text.substr(point + regional.decimal.size());
    const bool digitsOnly =
        std::ranges::all_of(whole, isDigit) && std::ranges::all_of(part, isDigit);
    const bool complete = !whole.empty() && (point == std::string_view::npos || !part.empty());
    const bool padded = whole.size() > 1 && whole.front() == '0';
    if (!digitsOnly || !complete || padded || whole.size() + part.size() > exactDigits)
        return std::nullopt;
    number.append(whole).append(".").append(part.empty() ? "0" : part);
    double value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    if (value == 0 && number.front() == '-') return std::nullopt;
    return value;
}

ColumnKind kindOfColumn(const RecordGrid& grid, int column, const Regional& regional) {
    ColumnKind found;
    const int rows = grid.visibleRows();
    if (rows > 0) found.alignment = grid.alignment(grid.visibleRow(0), column);
    if (grid.columnHasChecks(column)) {
        found.kind = ColumnKind::Kind::boolean;
        return found;
    }
    bool any = false;
    for (int n = 0; n < rows; ++n) {
        const std::string_view text = grid.text(grid.visibleRow(n), column);
        if (text.empty()) continue;
        if (!plainNumber(text, regional)) return found;
        any = true;
        found.decimals = std::max(found.decimals, decimalsOf(text, regional));
    }
    if (any) found.kind = ColumnKind::Kind::number;
    return found;
}

void tellProgress(const GridFileOptions& options, int done, int total) {
    if (!options.progress || (done % rowsBetweenTells != 0 && done != total)) return;
    if (!options.progress(done, total))
        throw RuntimeError(interruptedByUser, "The export was stopped; no file was written");
}

}  // namespace catalogador::exporting
