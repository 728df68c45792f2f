#pragma once
#include <string>
#include <vector>

#include "adapters/odbc/statement_runner.h"
#include "adapters/sql/column_info.h"
#include "adapters/sql/dialect.h"
#include "runtime/variant.h"

namespace catalogador::odbc {

/// The columns of the rows that a statement returned; none when it returns no rows. `sql` is its
/// text. Raises RuntimeError (statementFailed).
std::vector<sql::ColumnInfo> columnsOf(const Statement& statement, const sql::Dialect& dialect,
                                       const sql::SqlSyntax& syntax, const std::string& sql);

/// All the rows that a statement returned. Raises RuntimeError (statementFailed).
std::vector<std::vector<Variant>> rowsOf(const Statement& statement, const sql::Dialect& dialect,
                                         const sql::SqlSyntax& syntax, const std::string& sql);

}  // namespace catalogador::odbc
