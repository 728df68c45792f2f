#include "adapters/odbc/single_row_reader.h"

#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_rows.h"

namespace catalogador::odbc {

namespace {

constexpr std::size_t pieceBytes = std::size_t{64} << 10;

}  // namespace

SingleRowReader::SingleRowReader(const Statement& statement, const sql::Dialect& dialect,
                                 const std::vector<sql::ColumnInfo>& columns)
    : statement_(statement), cells_(columns.size()), piece_(pieceBytes) {
    for (const sql::ColumnInfo& column : columns)
        types_.push_back(transferType(dialect, column.kind));
}

bool SingleRowReader::next() {
    const SQLRETURN result = SQLFetch(statement_.get());
    statement_.check(result);
    if (result == SQL_NO_DATA) return false;
    for (std::size_t column = 0; column < types_.size(); ++column)
        cells_[column] = read(static_cast<SQLUSMALLINT>(column + 1), types_[column]);
    return true;
}

std::optional<std::string> SingleRowReader::read(SQLUSMALLINT number, SQLSMALLINT type) {
    std::string pieces;
    while (true) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement_.get(), number, type, piece_.data(),
                                            static_cast<SQLLEN>(piece_.size()), &length);
        statement_.check(result);
        if (result == SQL_NO_DATA) return textFromDriver(pieces.data(), pieces.size());
        if (length == SQL_NULL_DATA) return std::nullopt;
        if (type != transferredText)
            return sql::textOfTransferred(
                {type, {piece_.data(), static_cast<std::size_t>(length)}});
        // A piece that is followed by another ends with the terminator.
        const std::size_t room = piece_.size() - textUnit;
        const bool more = result == SQL_SUCCESS_WITH_INFO &&
                          (length == SQL_NO_TOTAL || length > static_cast<SQLLEN>(room));
        pieces.append(piece_.data(), more ? room : static_cast<std::size_t>(length));
        // Where a piece ends, a character need not end.
        if (!more) return textFromDriver(pieces.data(), pieces.size());
    }
}

}  // namespace catalogador::odbc
