#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sql/statement_text.h"

namespace catalogador::checks {

/// The placeholders of a text, as spelled there: "[" with letters, digits and "_" up to "]".
std::vector<std::string> placeholdersOf(std::string_view text);

/// Whether every `placeholder` of the text, whatever its capitals, stands between single quotes.
bool insideQuotes(std::string_view sql, std::string_view placeholder);

/// Whether the text begins with the word, whatever its capitals: what the screen decides by.
bool beginsWith(std::string_view sql, std::string_view word);

/// The views whose records a statement takes its first column from, as far as its text tells: the
/// numbers that CTeIDTipoVista is compared with. Empty when it tells nothing.
std::vector<std::int64_t> viewsOfFirstColumn(std::string_view sql, const sql::SqlSyntax& syntax);

/// Whether the statement names a table or column of that name.
bool mentions(std::string_view sql, std::string_view name, const sql::SqlSyntax& syntax);

/// Whether it joins a table in a way that can leave rows out.
bool joinsRowsAway(std::string_view sql, const sql::SqlSyntax& syntax);

/// Whether a placeholder is compared with "<>" or "!=", or the condition is negated in words.
bool comparedAsDifferent(std::string_view sql, std::string_view placeholder);

/// The text on one line, with "…" in the place of what is beyond 60 characters.
std::string shortened(std::string_view text);

}  // namespace catalogador::checks
