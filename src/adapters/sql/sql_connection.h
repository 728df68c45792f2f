#pragma once
#include <cstdint>
#include <functional>
#include <memory>

#include "adapters/sql/sql_session.h"
#include "platform/rdo.h"

namespace catalogador::sql {

/// A connection on a session of its own. Resultsets may outlive it; the database is left when the
/// last of them goes.
class SqlConnection : public rdoConnection {
  public:
    ~SqlConnection() override;
    SqlConnection(const SqlConnection&) = delete;
    SqlConnection& operator=(const SqlConnection&) = delete;

    /// The statements raise DataRefused when their data would not stay data, and RuntimeError
    /// (statementFailed) with the database's text.
    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) override;
    std::unique_ptr<rdoResultset> OpenToWrite(const SqlText& sql, int type = openDynamic,
                                              int lock = lockOptimisticByValues) override;
    std::int64_t Execute(const SqlText& sql) override;
    void setWaiting(const std::function<bool()>& waiting) override;
    void setListener(StatementListener* listener) override;

    [[nodiscard]] rdoSession* session() override { return session_.get(); }

  protected:
    /// Never null.
    explicit SqlConnection(std::shared_ptr<SqlSession> session);

  private:
    std::unique_ptr<rdoResultset> opened(const SqlText& sql, int type, int lock, bool toWrite);

    std::shared_ptr<SqlSession> session_;
};

}  // namespace catalogador::sql
