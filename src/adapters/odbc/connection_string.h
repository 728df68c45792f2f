#pragma once
#include <string>

namespace catalogador {

/// How a SQLite database file is reached. Raises RuntimeError (invalidProcedureCall) for a path
/// that cannot be written in a connection string. The file is created when it does not exist.
std::string connectionStringOfSqliteFile(const std::string& file);

/// The text with "***" in place of the passwords of the connection string.
std::string withoutPasswords(std::string text, const std::string& connectionString);

}  // namespace catalogador
