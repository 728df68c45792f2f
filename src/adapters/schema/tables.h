#pragma once
#include <string_view>
#include <vector>

#include "adapters/sql/dialect.h"

namespace catalogador::schema {

/// A column of one of the component's tables.
struct TableColumn {
    std::string_view name;
    sql::ColumnType type;
    bool required = false;
};

struct TableIndex {
    std::string_view name;
    std::string_view columns;
};

struct TableDefinition {
    std::string_view name;
    std::vector<TableColumn> columns;
    /// Columns separated by ", "; empty when the table has no key.
    std::string_view primaryKey = {};
    std::vector<TableIndex> indexes = {};
};

/// Every table that the component and its services use, in the order in which they are created.
const std::vector<TableDefinition>& schemaTables();
/// How many characters a text column of that type holds; 0 when it has no limit.
int longestText(sql::ColumnType type);

}  // namespace catalogador::schema
