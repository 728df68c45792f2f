#include "adapters/odbc/odbc_connection.h"

#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/odbc_resultset.h"
#include "adapters/odbc/odbc_session.h"

namespace catalogador {

namespace {

/// A Null has no type that a database could be told, so it is written into the statement's text
/// by the caller; the values here are all bound.
std::vector<Parameter> parametersOf(const std::vector<Variant>& values) {
    std::vector<Parameter> parameters;
    parameters.reserve(values.size());
    for (const Variant& value : values) parameters.push_back(parameterOf(value));
    return parameters;
}

}  // namespace

std::unique_ptr<OdbcConnection> OdbcConnection::open(const std::string& connectionString,
                                                     const Timeouts& timeouts) {
    return std::unique_ptr<OdbcConnection>(
        new OdbcConnection(std::make_shared<OdbcSession>(connectionString, timeouts)));
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

std::unique_ptr<rdoResultset> OdbcConnection::OpenResultset(const std::string& sql, int type,
                                                            int lock) {
    if (session_->listener != nullptr) session_->listener->opened(sql, type, lock);
    return std::make_unique<OdbcResultset>(session_, sql);
}

std::int64_t OdbcConnection::Execute(const std::string& sql) {
    if (session_->listener != nullptr) session_->listener->executed(sql);
    return session_->run(sql, {});
}

void OdbcConnection::setWaiting(const std::function<bool()>& waiting) {
    session_->waiting = waiting;
}

void OdbcConnection::setListener(StatementListener* listener) {
    session_->listener = listener;
}

void* OdbcConnection::handle() const {
    return session_->lend();
}

Dialect OdbcConnection::dialect() const {
    return session_->dialect();
}

std::vector<std::vector<Variant>> OdbcConnection::query(const std::string& sql,
                                                        const std::vector<Variant>& values) {
    return session_->query(sql, parametersOf(values));
}

std::int64_t OdbcConnection::run(const std::string& sql, const std::vector<Variant>& values) {
    return session_->run(sql, parametersOf(values));
}

void OdbcConnection::begin() {
    session_->begin();
}
void OdbcConnection::commit() {
    session_->commit();
}
void OdbcConnection::rollback() {
    session_->rollback();
}

}  // namespace catalogador
