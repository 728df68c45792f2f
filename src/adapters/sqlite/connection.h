#pragma once
#include <memory>
#include <string>

#include "adapters/sql/sql_connection.h"
#include "adapters/sql/timeouts.h"

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

/// A connection to a SQLite file without a driver in between.
class Connection : public sql::SqlConnection {
  public:
    /// Raises RuntimeError (statementFailed) with SQLite's text, or (invalidProcedureCall) for what
    /// is no name of a file.
    static std::unique_ptr<Connection> open(const std::string& file,
                                            const sql::Timeouts& timeouts = {},
                                            Opening opening = Opening::guarded);

  private:
    explicit Connection(std::shared_ptr<Session> session);
};

}  // namespace catalogador::sqlite
