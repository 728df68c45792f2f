#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "runtime/variant.h"

namespace catalogador::demo {

/// Rows to be inserted into a table.
struct TableRows {
    std::string table;
    /// Names separated by ", ", in the order of the values.
    std::string columns;
    std::vector<std::vector<Variant>> rows;
};

/// The value as it stands in a statement; texts are quoted and their quotes doubled.
std::string sqlLiteral(const Variant& value);

/// INSERT statements of at most `rowsPerStatement` (1 or more) rows each.
std::vector<std::string> insertStatements(const TableRows& table,
                                          std::size_t rowsPerStatement = 500);

}  // namespace catalogador::demo
