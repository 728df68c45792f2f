#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sql/timeouts.h"

namespace catalogador::odbc {

/// How a SQLite database file is reached. Raises RuntimeError (invalidProcedureCall) for a path
/// that cannot be written in a connection string. The file is created when it does not exist.
std::string connectionStringOfSqliteFile(const std::string& file);

/// The SQLite file of a connection string that needs no driver for it: its driver is one of
/// SQLite's, or it names a Database and neither a driver nor a data source nor a server. nullopt
/// for others.
std::optional<std::string> sqliteFileOf(const std::string& connectionString);

/// Whether the connection string has a value for that key, in capitals or not.
bool hasKey(const std::string& connectionString, std::string_view key);
/// The connection string with what its driver, if it is a known one, has to be told of the times
/// there; what the string says itself stays. A driver waits for an answer a little longer than the
/// server works on it, so that it gives up only on a server that is gone.
std::string withTimeouts(const std::string& connectionString, const sql::Timeouts& timeouts);

/// The connection string with what its driver, if it is a known one, has to be told so that one
/// statement is one command, whatever the string says of that.
std::string withOneCommand(const std::string& connectionString);
/// One connection string for each host that "Server" names with commas between, with the port at
/// the same place of "Port" (or its last one). The text itself for unknown drivers, and where there
/// is no such list. The driver of PostgreSQL would read the list, but only the first ten characters
/// of the ports.
std::vector<std::string> eachHost(const std::string& connectionString);

/// The text with "***" in place of the passwords of the connection string.
std::string withoutPasswords(std::string text, const std::string& connectionString);

}  // namespace catalogador::odbc
