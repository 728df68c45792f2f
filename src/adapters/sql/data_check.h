#pragma once
#include "adapters/sql/sql_tokens.h"
#include "platform/sql_text.h"

namespace catalogador::sql {

/// Raises DataRefused unless every piece of data of the statement stays a value: it lies within one
/// closed text of that database, or is one number (where the statement says so, whole numbers with
/// commas), and the statement has the same tokens as with any other value in its place. Digits
/// alone may also be part of a name or a comment. A NUL is refused everywhere. Where the syntax is
/// unknown, so is what some database or its driver might take for a quote, an escape or a control
/// character; an apostrophe passes doubled.
void requireDataStaysData(const SqlText& sql, const SqlSyntax& syntax);

}  // namespace catalogador::sql
