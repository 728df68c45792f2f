#pragma once
#include <string>
#include <vector>

#include "adapters/demo/table_rows.h"
#include "adapters/schema/schema.h"
#include "platform/rdo.h"

namespace catalogador::demo {

struct DemoOptions {
    /// Where the package iso-codes keeps its JSON files and its translations.
    std::string isoCodesFolder = "/usr/share/iso-codes/json";
    std::string translationsFolder = "/usr/share/locale";
    /// The person who gets user id 1 and every right; nobody does when it is empty.
    std::string userName = {};
    /// Of the database that is filled; must be one of sql::dialects().
    const sql::Dialect* dialect = sql::dialectNamed("sqlite");
};

/// Everything that a demonstration database holds. Raises RuntimeError when the code lists are not
/// installed (the description names the package) or are damaged.
std::vector<TableRows> demoTables(const DemoOptions& options);

/// Creates the tables in an empty database and fills them. The rows are written in one
/// transaction. Raises RuntimeError as above, before anything is written, or for a statement that
/// the database refuses (a table that exists already, for one).
void writeDemo(rdoConnection& connection, const DemoOptions& options);

}  // namespace catalogador::demo
