#pragma once
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/checks/database.h"

namespace catalogador::checks {

/// A column as the database has it.
struct ColumnFacts {
    /// The database's own name of the type.
    std::string type;
    /// Longest text in characters; 0 when it has no limit or none is known.
    int length = 0;
    /// Digits of the fraction of a second; -1 when the type has none or it is not known.
    int fraction = -1;
};

/// A table as the database has it; names of columns are folded.
struct TableFacts {
    std::map<std::string, ColumnFacts> columns;
    std::vector<std::set<std::string>> uniqueKeys;

    /// Null when there is no column of that name, whatever its capitals.
    [[nodiscard]] const ColumnFacts* column(std::string_view name) const;
};

/// The tables of a database by their folded names.
class SchemaFacts {
  public:
    /// The tables that statements find without naming a schema. Raises RuntimeError.
    static SchemaFacts of(const Database& database);

    /// Null when there is no table of that name, whatever its capitals.
    [[nodiscard]] const TableFacts* table(std::string_view name) const;
    [[nodiscard]] const ColumnFacts* column(std::string_view table, std::string_view name) const;

  private:
    std::map<std::string, TableFacts> tables_;
};

}  // namespace catalogador::checks
