#include "adapters/sql/sql_connection.h"

#include <utility>

#include "adapters/sql/sql_resultset.h"

namespace catalogador::sql {

namespace {

/// While it lives, what the session executes is that statement.
class Announced {
  public:
    Announced(SqlSession& session, const SqlText& sql) : session_(session) {
        session_.announce(sql);
    }
    ~Announced() { session_.forgetAnnounced(); }
    Announced(const Announced&) = delete;
    Announced& operator=(const Announced&) = delete;

  private:
    SqlSession& session_;
};

}  // namespace

SqlConnection::SqlConnection(std::shared_ptr<SqlSession> session) : session_(std::move(session)) {}

SqlConnection::~SqlConnection() {
    session_->listener = nullptr;
    session_->setWaiting(nullptr);
}

std::unique_ptr<rdoResultset> SqlConnection::OpenResultset(const SqlText& sql, int type, int lock) {
    return opened(sql, type, lock, false);
}

std::unique_ptr<rdoResultset> SqlConnection::OpenToWrite(const SqlText& sql, int type, int lock) {
    return opened(sql, type, lock, true);
}

std::unique_ptr<rdoResultset> SqlConnection::opened(const SqlText& sql, int type, int lock,
                                                    bool toWrite) {
    if (session_->listener != nullptr) session_->listener->opened(sql.text(), type, lock);
    const Announced announced(*session_, sql);
    return std::make_unique<SqlResultset>(session_, sql.text(), toWrite);
}

std::int64_t SqlConnection::Execute(const SqlText& sql) {
    if (session_->listener != nullptr) session_->listener->executed(sql.text());
    const Announced announced(*session_, sql);
    return session_->run(sql.text(), {});
}

void SqlConnection::setWaiting(const std::function<bool()>& waiting) {
    session_->setWaiting(waiting);
}

void SqlConnection::setListener(StatementListener* listener) {
    session_->listener = listener;
}

}  // namespace catalogador::sql
