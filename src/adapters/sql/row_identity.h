#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sql/statement_text.h"

namespace catalogador::sql {

/// What tells a row of a table from every other, beside the values that a
/// statement asks for.
struct RowIdentity {
    /// Columns, as the table calls them; a database's own address of a row is one
    /// too.
    std::vector<std::string> columns;
    /// Stays with its row whatever is written to it.
    bool lasting = true;
    /// Two rows that are alike in all of these are alike in everything: either
    /// may be meant.
    bool eitherOfAlike = false;
};

/// The SELECT with further columns behind those that it asks for.
std::string withColumns(std::string_view sql, const std::vector<std::string>& columns,
                        const SqlSyntax& syntax);

}  // namespace catalogador::sql
