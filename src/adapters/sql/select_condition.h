#pragma once
#include <string>
#include <string_view>

#include "adapters/sql/statement_text.h"

namespace catalogador::sql {

/// The condition by which a SELECT from one table picks its rows, without the word WHERE; empty
/// when it has none, and when the table has another name in it, which a write cannot use.
std::string selectCondition(std::string_view sql, const SqlSyntax& syntax);

}  // namespace catalogador::sql
