#pragma once
#include <string>
#include <vector>

#include "adapters/sql/dialect.h"

namespace catalogador::schema {

/// The statements that create every table the component and its services use, in the order in
/// which they have to run, without a closing semicolon.
std::vector<std::string> schemaStatementList(const sql::Dialect& dialect);

/// The same as one text for a database's own command line: each statement ends in ";\n".
std::string schemaStatements(const sql::Dialect& dialect);

}  // namespace catalogador::schema
