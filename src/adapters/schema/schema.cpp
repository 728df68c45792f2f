#include "adapters/schema/schema.h"

#include <cstddef>

#include "adapters/schema/tables.h"

namespace catalogador::schema {

namespace {

std::string createTable(const TableDefinition& table, const sql::Dialect& dialect) {
    std::string sql = "CREATE TABLE " + std::string(table.name) + " (";
    std::string_view separator = "\n    ";
    for (const TableColumn& column : table.columns) {
        sql += separator;
        sql += column.name;
        sql += " ";
        sql += dialect.facts().typeNames.at(static_cast<std::size_t>(column.type));
        sql += column.required ? " NOT NULL" : " NULL";
        separator = ",\n    ";
    }
    if (!table.primaryKey.empty())
        sql += ",\n    PRIMARY KEY (" + std::string(table.primaryKey) + ")";
    return sql.append("\n)").append(dialect.facts().tableOptions);
}

}  // namespace

std::vector<std::string> schemaStatementList(const sql::Dialect& dialect) {
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

std::string schemaStatements(const sql::Dialect& dialect) {
    std::string text;
    for (const std::string& statement : schemaStatementList(dialect)) text += statement + ";\n";
    return text;
}

}  // namespace catalogador::schema
