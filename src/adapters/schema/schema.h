#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace catalogador::schema {

/// The databases for which there is a schema.
enum class SchemaDialect { sqlite, postgresql, mariadb };

/// "sqlite", "postgresql" or "mariadb"; nullopt for any other name.
std::optional<SchemaDialect> dialectFromName(std::string_view name);

/// The statements that create every table the component and its services use, in the order in
/// which they have to run, without a closing semicolon.
std::vector<std::string> schemaStatementList(SchemaDialect dialect);

/// The same as one text for a database's own command line: each statement ends in ";\n".
std::string schemaStatements(SchemaDialect dialect);

}  // namespace catalogador::schema
