#include "adapters/sqlite/connection.h"

#include "adapters/sqlite/session.h"

namespace catalogador::sqlite {

std::unique_ptr<Connection> Connection::open(const std::string& file, const sql::Timeouts& timeouts,
                                             Opening opening) {
    return std::unique_ptr<Connection>(
        new Connection(std::make_shared<Session>(file, opening, timeouts)));
}

Connection::Connection(std::shared_ptr<Session> session) : SqlConnection(std::move(session)) {}

}  // namespace catalogador::sqlite
