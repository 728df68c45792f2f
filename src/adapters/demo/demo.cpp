#include "adapters/demo/demo.h"

#include <iterator>
#include <nlohmann/json.hpp>
#include <utility>

#include "adapters/demo/iso_codes.h"
#include "adapters/demo/metadata.h"
#include "adapters/demo/records.h"
#include "runtime/error.h"

namespace catalogador::demo {

namespace {

using nlohmann::json;

std::vector<TableRows> listedTables(const json& metadata) {
    std::vector<TableRows> tables;
    for (const json& table : metadata.at("tables")) {
        TableRows rows{table.at("table"), table.at("columns"), {}};
        for (const json& row : table.at("rows")) {
            std::vector<Variant>& values = rows.rows.emplace_back();
            for (const json& value : row) values.push_back(variantOf(value));
        }
        tables.push_back(std::move(rows));
    }
    return tables;
}

void rollBack(rdoConnection& connection) {
    try {
        connection.Execute("ROLLBACK");
    } catch (const RuntimeError&) {
        // The transaction is gone already; what made it fail is what the caller has to know.
    }
}

void writeRows(rdoConnection& connection, const std::vector<TableRows>& tables) {
    connection.Execute("BEGIN");
    try {
        for (const TableRows& table : tables) {
            for (const auto& statement : insertStatements(table)) {
                connection.Execute(statement);
            }
        }
        connection.Execute("COMMIT");
    } catch (const RuntimeError&) {
        rollBack(connection);
        throw;
    }
}

}  // namespace

std::vector<TableRows> demoTables(const DemoOptions& options) {
    const json& metadata = demoMetadata();
    const IsoCodes codes = readIsoCodes(options.isoCodesFolder, options.translationsFolder);
    std::vector<TableRows> tables = viewRows(metadata);
    tables.push_back(codeRecords(metadata, codes));
    tables.push_back(sequences(metadata, tables.back()));
    std::vector<TableRows> listed = listedTables(metadata);
    std::move(listed.begin(), listed.end(), std::back_inserter(tables));
    if (!options.userName.empty()) {
        tables.push_back({"accUsuarios", "UsuID, UsuNombre", {{1, options.userName}}});
    }
    return tables;
}

void writeDemo(rdoConnection& connection, const DemoOptions& options) {
    const std::vector<TableRows> tables = demoTables(options);
    for (const std::string& statement : schema::schemaStatementList(*options.dialect)) {
        connection.Execute(statement);
    }
    writeRows(connection, tables);
}

}  // namespace catalogador::demo
