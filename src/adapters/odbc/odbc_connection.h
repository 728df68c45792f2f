#pragma once
#include <memory>
#include <string>

#include "adapters/odbc/defences.h"
#include "adapters/sql/sql_connection.h"
#include "adapters/sql/timeouts.h"

namespace catalogador::odbc {

class OdbcSession;

/// A connection over ODBC.
class OdbcConnection : public sql::SqlConnection {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, in which no password appears.
    static std::unique_ptr<OdbcConnection> open(const std::string& connectionString,
                                                const sql::Timeouts& timeouts = {},
                                                const Defences& defences = {});
    /// Works on a connection of the driver manager that somebody else has opened and closes later.
    /// Raises RuntimeError (statementFailed).
    static std::unique_ptr<OdbcConnection> onHandle(void* handle);
    /// The connection string of a SQLite file, which is created when it does not exist. Raises
    /// RuntimeError (invalidProcedureCall) for a path that no connection string can carry.
    static std::string sqliteConnectionString(const std::string& file);

    /// The driver manager's handle of the connection, which stays the connection's own.
    [[nodiscard]] void* handle() const;

  private:
    explicit OdbcConnection(std::shared_ptr<OdbcSession> session);

    std::shared_ptr<OdbcSession> session_;
};

}  // namespace catalogador::odbc
