#pragma once
#include <memory>
#include <string>

#include "adapters/odbc/odbc_handle.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/row_reader.h"
#include "adapters/sql/sql_session.h"

namespace catalogador::odbc {

/// The rows of an executed statement over ODBC.
class OdbcRows : public sql::SqlRows {
  public:
    /// `session` must outlive this.
    OdbcRows(OdbcSession& session, OdbcHandle statement, const std::string& sql);
    ~OdbcRows() override;
    OdbcRows(const OdbcRows&) = delete;
    OdbcRows& operator=(const OdbcRows&) = delete;

  private:
    OdbcSession& session_;
    OdbcHandle statement_;
};

/// By blocks of rows into bound buffers where the driver lets a block be fetched again with larger
/// buffers, otherwise row by row. `statement` must outlive the reader.
std::unique_ptr<sql::RowReader> makeRowReader(const OdbcHandle& statement,
                                              const sql::Dialect& dialect,
                                              const std::vector<sql::ColumnInfo>& columns);

/// The C type (SQL_C_…) in which the values of a column are taken over: texts, but for the types
/// whose text a driver rounds or gives in binary.
SQLSMALLINT transferType(const sql::Dialect& dialect, sql::ColumnKind kind);

}  // namespace catalogador::odbc
