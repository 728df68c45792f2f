#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/column_info.h"
#include "adapters/odbc/dialect.h"
#include "adapters/odbc/odbc_handle.h"

namespace catalogador {

/// Reads the rows of an executed statement one after another.
class RowReader {
  public:
    virtual ~RowReader() = default;
    /// Goes to the next row (at first to the first one); false when there is none.
    virtual bool next() = 0;
    /// The text of a column of the current row, whole; nullopt for NULL. Valid until next().
    [[nodiscard]] virtual std::optional<std::string> cell(std::size_t column) const = 0;
};

/// By blocks of rows into bound buffers where the driver lets a block be fetched again with larger
/// buffers, otherwise row by row. `statement` must outlive the reader.
std::unique_ptr<RowReader> makeRowReader(const OdbcHandle& statement, Dialect dialect,
                                         const std::vector<ColumnInfo>& columns);

/// The C type (SQL_C_…) in which the values of a column are taken over: texts, but for the types
/// whose text a driver rounds or gives in binary.
SQLSMALLINT transferType(Dialect dialect, ColumnKind kind);

/// The text of a value that was taken over in that C type.
std::string textOfTransferred(SQLSMALLINT type, const char* data, std::size_t length);

}  // namespace catalogador
