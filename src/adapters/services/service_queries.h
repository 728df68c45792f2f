#pragma once
#include <string>
#include <utility>
#include <vector>

#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador::services {

/// Columns of the rows of one table in which other columns have given values (never Null). Texts
/// are the same when they are byte for byte, whatever the database calls the same. There is at
/// least one column and one condition.
struct TableQuestion {
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::pair<std::string, Variant>> conditions;
};

/// The answer, row by row. The values are handed to the database as parameters; where the
/// connection has none, all rows are read and compared here, so that no text of a user ever becomes
/// part of a statement. Raises RuntimeError.
std::vector<std::vector<Variant>> rowsWhere(rdoConnection& connection,
                                            const TableQuestion& question);

}  // namespace catalogador::services
