#include "adapters/checks/database.h"

#include "runtime/error.h"

namespace catalogador::checks {

namespace {

rdoSession& sessionOf(rdoConnection& connection) {
    rdoSession* session = connection.session();
    if (session == nullptr)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "Only a connection with transactions can be checked");
    return *session;
}

rdoPlanner& plannerOf(rdoSession& session) {
    auto* planner = dynamic_cast<rdoPlanner*>(&session);
    if (planner == nullptr)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "The connection cannot have a statement read without running it");
    return *planner;
}

}  // namespace

Database::Database(rdoConnection& connection)
    : connection_(connection),
      session_(sessionOf(connection)),
      planner_(plannerOf(session_)),
      dialect_(sql::dialectOf(session_)) {}

void Database::read(const std::string& sql, const std::function<void(rdoResultset&)>& visit) const {
    const rdoReading reading(session_, planner_);
    const auto rows = connection_.OpenResultset(sql);
    visit(*rows);
    rows->Close();
}

Database::Rows Database::rows(const std::string& sql) const {
    const rdoReading reading(session_, planner_);
    return session_.query(sql);
}

}  // namespace catalogador::checks
