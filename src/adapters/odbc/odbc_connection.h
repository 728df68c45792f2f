#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/dialect.h"
#include "adapters/odbc/timeouts.h"
#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador {

class OdbcSession;

/// A connection over ODBC. Resultsets may outlive it; the database is left when the last goes.
class OdbcConnection : public rdoConnection {
  public:
    /// Raises RuntimeError (statementFailed) with the driver's text, in which no password appears.
    static std::unique_ptr<OdbcConnection> open(const std::string& connectionString,
                                                const Timeouts& timeouts = {});
    /// Works on a connection of the driver manager that somebody else has opened and closes later.
    /// Raises RuntimeError (statementFailed).
    static std::unique_ptr<OdbcConnection> onHandle(void* handle);
    /// The connection string of a SQLite file, which is created when it does not exist. Raises
    /// RuntimeError (invalidProcedureCall) for a path that no connection string can carry.
    static std::string sqliteConnectionString(const std::string& file);

    ~OdbcConnection() override;

    std::unique_ptr<rdoResultset> OpenResultset(const std::string& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) override;
    std::int64_t Execute(const std::string& sql) override;
    void setWaiting(const std::function<bool()>& waiting) override;
    void setListener(StatementListener* listener) override;

    [[nodiscard]] Dialect dialect() const;
    /// The driver manager's handle of the connection.
    [[nodiscard]] void* handle() const;

    /// Statements of the program's own services, with a value for each "?". No listener is told of
    /// them. Both raise RuntimeError (statementFailed).
    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Variant>& values = {});
    /// Gives the number of rows touched (-1 when the driver does not tell).
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {});

    /// Everything from here to commit() or rollback() is done as a whole or not at all. In SQLite
    /// no one else can write meanwhile.
    void begin();
    void commit();
    void rollback();

  private:
    explicit OdbcConnection(std::shared_ptr<OdbcSession> session);

    std::shared_ptr<OdbcSession> session_;
};

}  // namespace catalogador
