#pragma once
#include <string_view>

#include "adapters/sql/statement_text.h"
#include "platform/rdo_plan.h"

namespace catalogador::sql {

/// How a statement stands to what is stored, as far as its text tells.
enum class StatementEffect {
    /// It gives rows. A function that it calls may still write.
    reads,
    /// It changes rows of a table.
    writesRows,
    /// Anything else: tables, files, settings, transactions.
    other
};
StatementEffect effectOf(std::string_view sql, const SqlSyntax& syntax);

/// What is known of a statement from its text alone.
StatementPlan planOf(std::string_view sql, const SqlSyntax& syntax);

}  // namespace catalogador::sql
