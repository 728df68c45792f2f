#include "adapters/odbc/odbc_connection.h"

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/sql/sql_resultset.h"

namespace catalogador::odbc {

std::unique_ptr<OdbcConnection> OdbcConnection::open(const std::string& connectionString,
                                                     const sql::Timeouts& timeouts,
                                                     const Defences& defences) {
    return std::unique_ptr<OdbcConnection>(
        new OdbcConnection(std::make_shared<OdbcSession>(connectionString, timeouts, defences)));
}

std::unique_ptr<OdbcConnection> OdbcConnection::onHandle(void* handle) {
    return std::unique_ptr<OdbcConnection>(new OdbcConnection(
        std::make_shared<OdbcSession>(OdbcHandle::borrowed(SQL_HANDLE_DBC, handle))));
}

std::string OdbcConnection::sqliteConnectionString(const std::string& file) {
    return connectionStringOfSqliteFile(file);
}

OdbcConnection::OdbcConnection(std::shared_ptr<OdbcSession> session)
    : session_(std::move(session)) {}

OdbcConnection::~OdbcConnection() {
    session_->listener = nullptr;
}

std::unique_ptr<rdoResultset> OdbcConnection::OpenResultset(const SqlText& sql, int type,
                                                            int lock) {
    return opened(sql, type, lock, false);
}

std::unique_ptr<rdoResultset> OdbcConnection::OpenToWrite(const SqlText& sql, int type, int lock) {
    return opened(sql, type, lock, true);
}

std::unique_ptr<rdoResultset> OdbcConnection::opened(const SqlText& sql, int type, int lock,
                                                     bool toWrite) {
    if (session_->listener != nullptr) session_->listener->opened(sql.text(), type, lock);
    const OdbcSession::Announced announced(*session_, sql);
    return std::make_unique<sql::SqlResultset>(session_, sql.text(), toWrite);
}

std::int64_t OdbcConnection::Execute(const SqlText& sql) {
    if (session_->listener != nullptr) session_->listener->executed(sql.text());
    const OdbcSession::Announced announced(*session_, sql);
    return session_->run(sql.text(), {});
}

void OdbcConnection::setWaiting(const std::function<bool()>& waiting) {
    session_->setWaiting(waiting);
}

void OdbcConnection::setListener(StatementListener* listener) {
    session_->listener = listener;
}

rdoSession* OdbcConnection::session() {
    return session_.get();
}

void* OdbcConnection::handle() const {
    return session_->lend();
}

}  // namespace catalogador::odbc
