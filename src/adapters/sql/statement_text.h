#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialect.h"

namespace catalogador {

/// How a database reads the text of a statement, as far as quoting and comments go.
struct SqlSyntax {
    /// A backslash in a quoted text takes the character after it.
    bool backslashEscapes = false;
    /// The same, but only in texts written E'…'.
    bool escapeStrings = false;
    /// $tag$…$tag$.
    bool dollarQuotes = false;
    bool backtickNames = false;
    bool bracketNames = false;
    bool doubleQuotedTexts = false;
    bool nestedComments = false;
    bool hashComments = false;
    /// "--" begins a comment only when a blank follows it.
    bool dashCommentNeedsBlank = false;
    /// What stands in /*! … */ is executed.
    bool executableComments = false;
};
SqlSyntax syntaxOf(Dialect dialect);

enum class TokenKind { word, quotedName, text, symbol, comment, separator };

/// A piece of a statement. A comment or a quotation that is never closed reaches to the end.
struct SqlToken {
    TokenKind kind = TokenKind::symbol;
    std::string_view text;
};

/// All the tokens, which point into `sql`; blanks are left out. Numbers are words.
std::vector<SqlToken> tokensOf(std::string_view sql, const SqlSyntax& syntax);

/// The first statement of the text without its ";". Raises RuntimeError (statementFailed) when
/// anything but blanks and comments follows the ";", or when there is no statement at all.
std::string singleStatement(std::string_view sql, const SqlSyntax& syntax);

/// The same text with a blank in place of every comment.
std::string withoutComments(std::string_view sql, const SqlSyntax& syntax);

/// The table, spelled as in the text, that the rows of a SELECT come from and can be written to;
/// nullopt when they come from several tables or are grouped, made distinct or combined.
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

}  // namespace catalogador
