#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/column_info.h"
#include "adapters/odbc/dialect.h"
#include "adapters/odbc/odbc_handle.h"
#include "adapters/odbc/statement_text.h"
#include "adapters/odbc/write_statements.h"
#include "platform/rdo.h"

namespace catalogador {

/// A connection to a database as the resultsets opened on it share it.
class OdbcSession {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, never with a password.
    explicit OdbcSession(const std::string& connectionString);
    ~OdbcSession();
    OdbcSession(const OdbcSession&) = delete;
    OdbcSession& operator=(const OdbcSession&) = delete;

    [[nodiscard]] Dialect dialect() const { return dialect_; }
    [[nodiscard]] const SqlSyntax& syntax() const { return syntax_; }

    /// Runs one statement; the handle that is given back holds its rows, if any. `warnings` gets
    /// what the driver has to say of a statement that was run.
    OdbcHandle execute(const std::string& sql, const std::vector<Parameter>& parameters = {},
                       std::string* warnings = nullptr);
    /// The columns of the rows that a statement returned when it was executed; none when it
    /// returns no rows.
    [[nodiscard]] std::vector<ColumnInfo> columnsOf(const OdbcHandle& statement,
                                                    const std::string& sql) const;
    [[nodiscard]] static std::int64_t touchedRows(const OdbcHandle& statement);

    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Parameter>& parameters);
    std::int64_t run(const std::string& sql, const std::vector<Parameter>& parameters);

    /// Writes a row and gives the number of rows touched. A value that the database could store
    /// only in part is refused. To be used in a transaction.
    std::int64_t write(const ParameterizedStatement& statement);

    /// Transactions may be nested; an inner one is a savepoint of the outer.
    void begin();
    void commit();
    void rollback();

    /// Null or whoever is told of the statements.
    StatementListener* listener = nullptr;

  private:
    void connect(const std::string& connectionString);
    void prepareDialect();
    void setAutocommit(bool on);
    void endTransaction(SQLSMALLINT how);
    [[nodiscard]] std::string savepoint() const;

    OdbcHandle environment_;
    OdbcHandle connection_;
    Dialect dialect_ = Dialect::other;
    SqlSyntax syntax_;
    int transactions_ = 0;
    bool connected_ = false;
};

/// A transaction that is rolled back unless it was committed.
class OdbcTransaction {
  public:
    explicit OdbcTransaction(OdbcSession& session) : session_(session) { session_.begin(); }
    ~OdbcTransaction();
    OdbcTransaction(const OdbcTransaction&) = delete;
    OdbcTransaction& operator=(const OdbcTransaction&) = delete;

    void commit();

  private:
    OdbcSession& session_;
    bool open_ = true;
};

}  // namespace catalogador
