#include "adapters/schema/schema.h"

#include <array>
#include <cstddef>
#include <utility>

#include "adapters/schema/tables.h"

namespace catalogador::schema {

namespace {

constexpr std::size_t dialectCount = 3;
using TypeNames = std::array<std::string_view, dialectCount>;

// Numbers are approximate where an exact type would show decimals nobody typed ("724.0000"), and
// NUMERIC on SQLite, which keeps whole numbers whole. A bit is what the drivers report as a bit.
// Keys need a length on MariaDB, and TIMESTAMP would change by itself there. Stamps keep
// microseconds, or two saves within a second would look like one.
constexpr std::array<TypeNames, static_cast<std::size_t>(ColumnType::count)> typeNames{{
    {"SMALLINT", "SMALLINT", "SMALLINT"},
    {"INTEGER", "INTEGER", "INT"},
    {"REAL", "REAL", "FLOAT"},
    {"NUMERIC", "DOUBLE PRECISION", "DOUBLE"},
    {"VARCHAR(100)", "VARCHAR(100)", "VARCHAR(100)"},
    {"VARCHAR(255)", "VARCHAR(255)", "VARCHAR(255)"},
    {"VARCHAR(2000)", "VARCHAR(2000)", "VARCHAR(2000)"},
    {"TEXT", "TEXT", "TEXT"},
    {"BIT", "BOOLEAN", "BIT(1)"},
    {"TIMESTAMP", "TIMESTAMP(6)", "DATETIME(6)"},
}};

std::string createTable(const TableDefinition& table, SchemaDialect dialect) {
    std::string sql = "CREATE TABLE " + std::string(table.name) + " (";
    std::string_view separator = "\n    ";
    for (const TableColumn& column : table.columns) {
        sql += separator;
        sql += column.name;
        sql += " ";
        sql += typeNames.at(static_cast<std::size_t>(column.type))
                   .at(static_cast<std::size_t>(dialect));
        sql += column.required ? " NOT NULL" : " NULL";
        separator = ",\n    ";
    }
    if (!table.primaryKey.empty())
        sql += ",\n    PRIMARY KEY (" + std::string(table.primaryKey) + ")";
    sql += "\n)";
    // Texts of any language, whatever the server's default is.
    if (dialect == SchemaDialect::mariadb) sql += " CHARACTER SET utf8mb4";
    return sql;
}

}  // namespace

std::optional<SchemaDialect> dialectFromName(std::string_view name) {
    constexpr std::array<std::pair<std::string_view, SchemaDialect>, dialectCount> names{
        {{"sqlite", SchemaDialect::sqlite},
         {"postgresql", SchemaDialect::postgresql},
         {"mariadb", SchemaDialect::mariadb}}};
    for (const auto& [text, dialect] : names) {
        if (text == name) return dialect;
    }
    return std::nullopt;
}

std::vector<std::string> schemaStatementList(SchemaDialect dialect) {
    std::vector<std::string> statements;
    for (const TableDefinition& table : schemaTables()) {
        statements.push_back(createTable(table, dialect));
        for (const TableIndex& index : table.indexes) {
            statements.push_back("CREATE INDEX " + std::string(index.name) + " ON " +
                                 std::string(table.name) + " (" + std::string(index.columns) + ")");
        }
    }
    return statements;
}

std::string schemaStatements(SchemaDialect dialect) {
    std::string text;
    for (const std::string& statement : schemaStatementList(dialect)) text += statement + ";\n";
    return text;
}

}  // namespace catalogador::schema
