#include "adapters/odbc/row_reader.h"

#include <cstring>

#include "adapters/odbc/block_reader.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/single_row_reader.h"

namespace catalogador {

SQLSMALLINT transferType(Dialect dialect, ColumnKind kind) {
    // The driver of SQLite has nothing but texts, and its columns may hold anything.
    if (dialect == Dialect::sqlite) return transferredText;
    switch (kind) {
        // As SQL_C_BIT, the driver of MariaDB does not tell a bound value from Null.
        case ColumnKind::boolean:
            return SQL_C_UTINYINT;
        case ColumnKind::single:
        case ColumnKind::real:
            return SQL_C_DOUBLE;
        default:
            return transferredText;
    }
}

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

std::unique_ptr<RowReader> makeRowReader(const OdbcHandle& statement, Dialect dialect,
                                         const std::vector<ColumnInfo>& columns) {
    SQLULEN cursor = SQL_CURSOR_FORWARD_ONLY;
    SQLGetStmtAttr(statement.get(), SQL_ATTR_CURSOR_TYPE, &cursor, 0, nullptr);
    // Unknown drivers are not trusted to find their way back to the start of a block.
    if (cursor == SQL_CURSOR_FORWARD_ONLY || dialect == Dialect::other)
        return std::make_unique<SingleRowReader>(statement, dialect, columns);
    return std::make_unique<BlockReader>(statement, dialect, columns);
}

}  // namespace catalogador
