#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sql/sql_tokens.h"

namespace catalogador::sql {

/// The name that a word or a quoted name stands for.
std::string unquotedName(const SqlToken& token);

/// The first statement of the text without its ";". Raises RuntimeError (statementFailed) when
/// anything but blanks and comments follows the ";", or when there is no statement at all.
std::string singleStatement(std::string_view sql, const SqlSyntax& syntax);

/// The words of the statement, which point into `sql`; comments, quoted names and texts are left
/// out.
std::vector<std::string_view> wordsOf(std::string_view sql, const SqlSyntax& syntax);

/// The same text with a blank in place of every comment.
std::string withoutComments(std::string_view sql, const SqlSyntax& syntax);

/// The table, spelled as in the text, that the rows of a SELECT come from and can be written to;
/// nullopt when they come from several tables or are grouped, counted or summed up, made distinct
/// or combined.
std::optional<std::string> writableTable(std::string_view sql, const SqlSyntax& syntax);

/// One column, or several, that a SELECT asks for.
struct SelectItem {
    /// "*" or "t.*".
    bool isStar = false;
    /// The column, without quotes, of "column AS alias" or "t.column alias"; else empty.
    std::string aliasedColumn;
};
/// What stands between SELECT and FROM; empty when the text is no SELECT.
std::vector<SelectItem> selectItems(std::string_view sql, const SqlSyntax& syntax);

}  // namespace catalogador::sql
