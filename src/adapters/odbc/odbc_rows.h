#pragma once
#include <memory>
#include <vector>

#include "adapters/odbc/statement_runner.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/row_reader.h"
#include "adapters/sql/sql_session.h"

namespace catalogador::odbc {

/// The rows of an executed statement over ODBC.
class OdbcRows : public sql::SqlRows {
  public:
    OdbcRows(Statement statement, const sql::Dialect& dialect,
             std::vector<sql::ColumnInfo> described);
    /// A statement with many rows is freed while the caller goes on.
    ~OdbcRows() override;
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

  private:
    Statement statement_;
};

/// By blocks of rows into bound buffers where the driver lets a block be fetched again with larger
/// buffers, otherwise row by row. `statement` must outlive the reader.
std::unique_ptr<sql::RowReader> makeRowReader(const Statement& statement,
                                              const sql::Dialect& dialect,
                                              const std::vector<sql::ColumnInfo>& columns);

/// The C type (SQL_C_…) in which the values of a column are taken over: texts, but for the types
/// whose text a driver rounds or gives in binary.
SQLSMALLINT transferType(const sql::Dialect& dialect, sql::ColumnKind kind);

}  // namespace catalogador::odbc
