#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "adapters/odbc/defences.h"
#include "adapters/sql/timeouts.h"
#include "platform/rdo.h"

namespace catalogador::odbc {

class OdbcSession;

/// A connection over ODBC. Resultsets may outlive it; the database is left when the last goes.
class OdbcConnection : public rdoConnection {
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

    ~OdbcConnection() override;

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) override;
    std::unique_ptr<rdoResultset> OpenToWrite(const SqlText& sql, int type = openDynamic,
                                              int lock = lockOptimisticByValues) override;
    std::int64_t Execute(const SqlText& sql) override;
    void setWaiting(const std::function<bool()>& waiting) override;
    void setListener(StatementListener* listener) override;

    [[nodiscard]] rdoSession* session() override;

    /// The driver manager's handle of the connection.
    [[nodiscard]] void* handle() const;

  private:
    explicit OdbcConnection(std::shared_ptr<OdbcSession> session);

    std::unique_ptr<rdoResultset> opened(const SqlText& sql, int type, int lock, bool toWrite);

    std::shared_ptr<OdbcSession> session_;
};

}  // namespace catalogador::odbc
