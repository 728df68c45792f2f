#pragma once
#include <memory>
#include <string>

#include "adapters/odbc/odbc_connection.h"
#include "apps/options.h"
#include "platform/rdo.h"

namespace catalogador {

/// Opens the database that was named. Raises RuntimeError with one line that says what to do and
/// shows no password.
std::unique_ptr<rdoConnection> openDatabase(const Options& options);
/// The same for another user at another desk, who may do anything with the database.
std::unique_ptr<rdoConnection> openOtherDesk(const Options& options);
/// The same for the connection string of the options.
std::unique_ptr<odbc::OdbcConnection> openServer(const Options& options);
/// Opens a SQLite file that may not exist yet.
std::unique_ptr<rdoConnection> createDatabase(const std::string& file);

}  // namespace catalogador
