#include "adapters/sqlite/connection.h"

#include "adapters/sql/data_check.h"
#include "adapters/sql/sql_resultset.h"
#include "adapters/sqlite/session.h"

namespace catalogador::sqlite {

std::unique_ptr<Connection> Connection::open(const std::string& file, const sql::Timeouts& timeouts,
                                             Opening opening) {
    return std::unique_ptr<Connection>(
        new Connection(std::make_shared<Session>(file, opening, timeouts)));
}

Connection::Connection(std::shared_ptr<Session> session) : session_(std::move(session)) {}

Connection::~Connection() {
    session_->listener = nullptr;
    session_->waiting = nullptr;
}

std::unique_ptr<rdoResultset> Connection::OpenResultset(const SqlText& sql, int type, int lock) {
    return opened(sql, type, lock, false);
}

std::unique_ptr<rdoResultset> Connection::OpenToWrite(const SqlText& sql, int type, int lock) {
    return opened(sql, type, lock, true);
}

std::unique_ptr<rdoResultset> Connection::opened(const SqlText& sql, int type, int lock,
                                                 bool toWrite) {
    if (session_->listener != nullptr) session_->listener->opened(sql.text(), type, lock);
    sql::requireDataStaysData(sql, session_->syntax());
    return std::make_unique<sql::SqlResultset>(session_, sql.text(), toWrite);
}

std::int64_t Connection::Execute(const SqlText& sql) {
    if (session_->listener != nullptr) session_->listener->executed(sql.text());
    sql::requireDataStaysData(sql, session_->syntax());
    return session_->run(sql.text());
}

void Connection::setWaiting(const std::function<bool()>& waiting) {
    session_->waiting = waiting;
}

void Connection::setListener(StatementListener* listener) {
    session_->listener = listener;
}

rdoSession* Connection::session() {
    return session_.get();
}

}  // namespace catalogador::sqlite
