#pragma once
#include <chrono>
#include <string>
#include <string_view>

#include "adapters/sql/sql_tokens.h"
#include "adapters/sql/timeouts.h"
#include "platform/dialect.h"

namespace catalogador::odbc {

/// What the transactions that begin next in a session may do.
enum class Access { reading, writing };

/// The first function that a text names and that reaches files, loads code or runs a text; empty
/// when it names none. Names are found anywhere in the text, without regard to case.
std::string_view reachingFunction(Dialect dialect, std::string_view text);

/// The statement that sets it; empty for a database that is not known.
std::string accessStatement(Dialect dialect, Access access);

/// Sets how the server reads texts, and how long it waits and works. A query, whose first column
/// is the number by which the server knows the session, and the second is 1 when its user is
/// a superuser and the role pg_read_all_data exists.
std::string postgresqlSettings(const sql::Timeouts& timeouts);
/// Begins the transaction of a statement with data in PostgreSQL; `asReader` limits it to the
/// rights of pg_read_all_data.
std::string postgresqlCheck(bool asReader);
/// The same of MariaDB, in two: what is set, and the query.
std::string mariadbSettings(const sql::Timeouts& timeouts);
/// Number of the session, sql_mode, character set of statements, version.
extern const char* const mariadbState;

/// How a MariaDB of that mode, character set and version reads statements.
sql::SqlSyntax mariadbSyntax(const std::string& mode, const std::string& characterSet,
                             const std::string& version);

/// Ends the session of that number; empty for a database that has none.
std::string endSessionStatement(Dialect dialect, const std::string& number);

/// A query that PostgreSQL refuses unless its one parameter is the text of one query. Nothing of
/// that text is run.
extern const char* const oneCommandQuery;

}  // namespace catalogador::odbc
