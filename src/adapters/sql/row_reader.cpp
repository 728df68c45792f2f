#include "adapters/sql/row_reader.h"

#include <cstring>

namespace catalogador {

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

}  // namespace catalogador
