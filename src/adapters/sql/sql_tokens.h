#pragma once
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

namespace catalogador::sql {

/// How a database reads the text of a statement, as far as quoting and comments go.
struct SqlSyntax {
    /// A backslash in a quoted text takes the character after it.
    bool backslashEscapes = false;
    /// The same, but only in texts written E'…'.
    bool escapeStrings = false;
    /// U&'…' and U&"…".
    bool unicodeQuotes = false;
    /// Letters that make a text of digits, in which no quote is doubled: x'41'.
    std::string_view digitTexts;
    /// A text goes on in the next one when a line ends between them.
    bool continuedTexts = false;
    /// $tag$…$tag$.
    bool dollarQuotes = false;
    bool backtickNames = false;
    bool bracketNames = false;
    bool doubleQuotedTexts = false;
    bool nestedComments = false;
    bool hashComments = false;
    /// "--" begins a comment only when a blank or a control character follows it.
    bool dashCommentNeedsBlank = false;
    /// A carriage return ends a comment too.
    bool returnEndsComment = false;
    /// What stands in /*! … */ and /*M! … */ is executed, unless it is for a later server.
    bool executableComments = false;
    /// Of the server, as its comments write it (10.11.6 is 101106); 0 when it is not known.
    int serverVersion = 0;
    /// Nothing behind a NUL is read.
    bool endsAtNul = false;
    /// A letter right behind a number begins a word.
    bool numbersEndAtLetters = false;
    /// $name, @name, :name and #name, which may take a pair of parentheses with them.
    bool namedVariables = false;
    /// How the database reads is not known: the above is what standard SQL says.
    bool unknown = false;
};

enum class TokenKind { word, quotedName, text, symbol, comment, separator };

/// A piece of a statement. A comment or a quotation that is never closed reaches to the end.
struct SqlToken {
    TokenKind kind = TokenKind::symbol;
    std::string_view text;
    /// False of a comment or a quotation that the statement does not close.
    bool closed = true;
};

/// Whether the token is that keyword, given in capitals. Letters beyond ASCII are no other's
/// capitals, as in the databases.
bool isKeyword(const SqlToken& token, std::string_view keyword);
/// Whether the token is one of those keywords.
bool isOneOf(const SqlToken& token, std::span<const std::string_view> keywords);
bool isOneOf(const SqlToken& token, std::initializer_list<std::string_view> keywords);
/// Whether the token is that character, outside of every quotation.
bool isSymbol(const SqlToken& token, char symbol);

/// All the tokens, which point into `sql`; blanks are left out. A number is one word, without its
/// sign. Each part of a continued text is a text of its own.
std::vector<SqlToken> tokensOf(std::string_view sql, const SqlSyntax& syntax);

}  // namespace catalogador::sql
