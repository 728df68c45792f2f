#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "adapters/sql/column_info.h"
#include "adapters/sql/odbc_api.h"
#include "adapters/sql/write_statements.h"

namespace catalogador::sql {

/// A value in the buffer that it was fetched into, and the C type (SQL_C_…) that it has there.
/// Texts are SQL_C_CHAR and UTF-8, however the database gave them.
struct TransferredCell {
    SQLSMALLINT type = SQL_C_CHAR;
    std::string_view bytes;
};

/// Reads the rows of an executed statement one after another.
class RowReader {
  public:
    virtual ~RowReader() = default;
    /// Goes to the next row (at first to the first one); false when there is none.
    virtual bool next() = 0;
    /// Rows from the current one on that were fetched with it.
    [[nodiscard]] virtual std::size_t rowsAtHand() const { return 1; }
    /// A column of the `ahead`-th row at hand (0 is the current one) as it was transferred, whole;
    /// nullopt for NULL. Valid until next().
    [[nodiscard]] virtual std::optional<TransferredCell> transferred(std::size_t column,
                                                                     std::size_t ahead) const = 0;
    /// The text of a column of the current row, whole; nullopt for NULL.
    [[nodiscard]] std::optional<std::string> cell(std::size_t column) const;
    /// The same as the database has it to the last bit; nullopt also where that is not known.
    [[nodiscard]] virtual std::optional<Parameter> exact(std::size_t /*column*/) const {
        return std::nullopt;
    }
    /// The same as a value of that kind of column.
    [[nodiscard]] Variant value(std::size_t column, ColumnKind kind) const;
};

/// The text of a value that was taken over.
std::string textOfTransferred(const TransferredCell& cell);

}  // namespace catalogador::sql
