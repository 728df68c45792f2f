#include "adapters/sql/row_reader.h"

#include <cstring>

namespace catalogador::sql {

std::string textOfTransferred(const TransferredCell& cell) {
    if (cell.type == SQL_C_UTINYINT) return cell.bytes.front() != 0 ? "1" : "0";
    if (cell.type != SQL_C_DOUBLE) return std::string(cell.bytes);
    double value = 0;
    std::memcpy(&value, cell.bytes.data(), sizeof value);
    return shortestText(value);
}

std::optional<std::string> RowReader::cell(std::size_t column) const {
    const auto found = transferred(column, 0);
    return found ? std::optional(textOfTransferred(*found)) : std::nullopt;
}

Variant RowReader::value(std::size_t column, ColumnKind kind) const {
    // A column that was not declared to hold anything holds what is in it.
    if (const auto stored = kind == ColumnKind::other ? exact(column) : std::nullopt) {
        if (const auto* whole = std::get_if<std::int64_t>(&stored->value)) return *whole;
        if (const auto* real = std::get_if<double>(&stored->value)) return *real;
    }
    auto text = cell(column);
    return text ? variantOf(std::move(*text), kind) : Variant();
}

}  // namespace catalogador::sql
