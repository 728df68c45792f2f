#include "adapters/odbc/odbc_connection.h"

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/odbc_session.h"

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
    : SqlConnection(session), session_(std::move(session)) {}

void* OdbcConnection::handle() const {
    return session_->lend();
}

}  // namespace catalogador::odbc
