#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "adapters/sql/column_info.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/row_reader.h"
#include "adapters/sql/statement_text.h"
#include "adapters/sql/write_statements.h"
#include "platform/rdo.h"

namespace catalogador::sql {

/// What a statement returned, until it is destroyed.
class SqlRows {
  public:
    virtual ~SqlRows() = default;

    std::vector<ColumnInfo> columns;
    /// Null when the statement returns no rows.
    std::unique_ptr<RowReader> reader;
};

/// A connection as the resultsets opened on it share it. Every member raises RuntimeError
/// (statementFailed) with the database's own text.
class SqlSession : public rdoSession {
  public:
    [[nodiscard]] const Dialect& dialect() const override = 0;
    /// How the session reads statements.
    [[nodiscard]] virtual const SqlSyntax& syntax() const = 0;
    /// What is executed until forgetAnnounced() is that statement, or serves to execute it. Raises
    /// DataRefused when its data would not stay data.
    virtual void announce(const SqlText& sql) = 0;
    virtual void forgetAnnounced() {}
    /// `waiting` is called while a statement runs long, if not empty; false stops the statement.
    virtual void setWaiting(const std::function<bool()>& waiting) = 0;

    /// Runs one statement that returns rows.
    virtual std::unique_ptr<SqlRows> open(const std::string& sql) = 0;
    /// Writes a row and gives the number of rows touched. A value that the database could store
    /// only in part is refused. To be used in a transaction.
    virtual std::int64_t write(const ParameterizedStatement& statement) = 0;
    using rdoSession::query;
    virtual std::vector<std::vector<Variant>> query(const ParameterizedStatement& statement) = 0;
    /// Null or whoever is told of the statements.
    StatementListener* listener = nullptr;
};

}  // namespace catalogador::sql
