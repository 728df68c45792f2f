#include "adapters/odbc/odbc_rows.h"

#include "adapters/odbc/block_reader.h"
#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/single_row_reader.h"

namespace catalogador::odbc {

OdbcRows::OdbcRows(Statement statement, const sql::Dialect& dialect,
                   std::vector<sql::ColumnInfo> described)
    : statement_(std::move(statement)) {
    columns = std::move(described);
    if (!columns.empty()) reader = makeRowReader(statement_, dialect, columns);
}

OdbcRows::~OdbcRows() {
    constexpr std::size_t manyRows = 2000;
    const auto* block = dynamic_cast<const BlockReader*>(reader.get());
    const bool many = block != nullptr && block->rowsRead() > manyRows;
    reader.reset();
    if (many) statement_.freeBeside();
}

SQLSMALLINT transferType(const sql::Dialect& dialect, sql::ColumnKind kind) {
    if (dialect.facts().givesTextsOnly) return transferredText;
    switch (kind) {
        // As SQL_C_BIT, the driver of MariaDB does not tell a bound value from Null.
        case sql::ColumnKind::boolean:
            return SQL_C_UTINYINT;
        case sql::ColumnKind::single:
        case sql::ColumnKind::real:
            return SQL_C_DOUBLE;
        default:
            return transferredText;
    }
}

std::unique_ptr<sql::RowReader> makeRowReader(const Statement& statement,
                                              const sql::Dialect& dialect,
                                              const std::vector<sql::ColumnInfo>& columns) {
    SQLULEN cursor = SQL_CURSOR_FORWARD_ONLY;
    SQLGetStmtAttr(statement.get(), SQL_ATTR_CURSOR_TYPE, &cursor, 0, nullptr);
    // Unknown drivers are not trusted to find their way back to the start of a block.
    if (cursor == SQL_CURSOR_FORWARD_ONLY || !dialect.facts().fetchesAgain)
        return std::make_unique<SingleRowReader>(statement, dialect, columns);
    return std::make_unique<BlockReader>(statement, dialect, columns);
}

}  // namespace catalogador::odbc
