#pragma once
#include <memory>
#include <string>

#include "adapters/sql/timeouts.h"
#include "platform/rdo.h"

namespace catalogador::sqlite {

class Session;

/// For whom a file is opened.
enum class Opening {
    /// For screens: statements read, and write rows of tables in transactions, and nothing else.
    guarded,
    /// For whoever may do anything with the database.
    unguarded,
    /// The same, and the file is made when it does not exist.
    created
};

/// A connection to a SQLite file without a driver in between. Resultsets may outlive it; the file
/// is closed when the last goes.
class Connection : public rdoConnection {
  public:
    /// Raises RuntimeError (statementFailed) with SQLite's text, or (invalidProcedureCall) for what
    /// is no name of a file.
    static std::unique_ptr<Connection> open(const std::string& file,
                                            const sql::Timeouts& timeouts = {},
                                            Opening opening = Opening::guarded);
    ~Connection() override;

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) override;
    std::unique_ptr<rdoResultset> OpenToWrite(const SqlText& sql, int type = openDynamic,
                                              int lock = lockOptimisticByValues) override;
    std::int64_t Execute(const SqlText& sql) override;
    void setWaiting(const std::function<bool()>& waiting) override;
    void setListener(StatementListener* listener) override;

    [[nodiscard]] rdoSession* session() override;

  private:
    explicit Connection(std::shared_ptr<Session> session);

    std::unique_ptr<rdoResultset> opened(const SqlText& sql, int type, int lock, bool toWrite);

    std::shared_ptr<Session> session_;
};

}  // namespace catalogador::sqlite
