#include "adapters/sql/statement_text.h"

#include <algorithm>
#include <array>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What may come after the one table of a SELECT whose rows can be written.
constexpr std::array<std::string_view, 6> clausesAfterTable{"WHERE",  "ORDER", "LIMIT",
                                                            "OFFSET", "FETCH", "FOR"};
/// What makes a row of the result something else than a row of the table.
constexpr std::array<std::string_view, 6> combiningClauses{"GROUP", "HAVING",    "WINDOW",
                                                           "UNION", "INTERSECT", "EXCEPT"};
/// Words in the place of a table's name or alias that are neither.
constexpr std::array<std::string_view, 13> noNames{
    "JOIN",    "INNER",       "LEFT",    "RIGHT", "FULL", "CROSS",        "NATURAL",
    "LATERAL", "TABLESAMPLE", "INDEXED", "NOT",   "ONLY", "STRAIGHT_JOIN"};

/// Functions that make one row of many where the database gives a row's own columns beside them.
constexpr std::array<std::string_view, 22> aggregates{"COUNT",
                                                      "SUM",
                                                      "MIN",
                                                      "MAX",
                                                      "AVG",
                                                      "TOTAL",
                                                      "GROUP_CONCAT",
                                                      "STRING_AGG",
                                                      "JSON_GROUP_ARRAY",
                                                      "JSON_GROUP_OBJECT",
                                                      "JSON_ARRAYAGG",
                                                      "JSON_OBJECTAGG",
                                                      "BIT_AND",
                                                      "BIT_OR",
                                                      "BIT_XOR",
                                                      "STD",
                                                      "STDDEV",
                                                      "STDDEV_POP",
                                                      "STDDEV_SAMP",
                                                      "VARIANCE",
                                                      "VAR_POP",
                                                      "VAR_SAMP"};

bool isName(const SqlToken& token) {
    if (token.kind == TokenKind::quotedName) return true;
    return token.kind == TokenKind::word && !isDigit(token.text.front()) &&
           !isOneOf(token, clausesAfterTable) && !isOneOf(token, combiningClauses) &&
           !isOneOf(token, noNames);
}

/// The tokens that stand outside of parentheses, each pair of which leaves its "(" behind.
std::vector<SqlToken> outerTokens(const std::vector<SqlToken>& all) {
    std::vector<SqlToken> outer;
    int depth = 0;
    for (const SqlToken& token : all) {
        if (token.kind == TokenKind::comment) continue;
        if (isSymbol(token, ')')) --depth;
        if (depth == 0 && !isSymbol(token, ')')) outer.push_back(token);
        if (isSymbol(token, '(')) ++depth;
    }
    return outer;
}

using TokenPlace = std::vector<SqlToken>::const_iterator;

/// Where the parenthesis ends that is open here: its ")", or the end.
TokenPlace closingOf(TokenPlace open, TokenPlace end) {
    int depth = 0;
    return std::find_if(open, end, [&](const SqlToken& token) {
        if (isSymbol(token, '(')) ++depth;
        if (isSymbol(token, ')')) --depth;
        return depth == 0;
    });
}

/// Whether the function at `name` makes one row of many: over a window it does not, nor do Min and
/// Max of several values.
bool isAggregate(TokenPlace name, TokenPlace end) {
    if (!isOneOf(*name, aggregates) || name + 1 == end || !isSymbol(name[1], '(')) return false;
    const auto closing = closingOf(name + 1, end);
    if (closing != end && closing + 1 != end && isKeyword(closing[1], "OVER")) return false;
    if (!isKeyword(*name, "MIN") && !isKeyword(*name, "MAX")) return true;
    const auto inner = outerTokens({name + 2, closing});
    return std::none_of(inner.begin(), inner.end(),
                        [](const SqlToken& token) { return isSymbol(token, ','); });
}

/// Whether a SELECT without GROUP BY gives one row for all that it reads.
bool isAggregated(std::vector<SqlToken> tokens) {
    tokens.erase(std::remove_if(tokens.begin(), tokens.end(),
                                [](const SqlToken& t) { return t.kind == TokenKind::comment; }),
                 tokens.end());
    const auto end = tokens.cend();
    for (auto token = tokens.cbegin(); token != end; ++token) {
        const bool selects =
            isSymbol(*token, '(') && token + 1 != end && isKeyword(token[1], "SELECT");
        if (selects) token = closingOf(token, end);
        if (token == end || isKeyword(*token, "FROM")) return false;
        if (isAggregate(token, end)) return true;
    }
    return false;
}

SelectItem selectItem(const std::vector<SqlToken>& tokens) {
    SelectItem item;
    item.isStar = !tokens.empty() && isSymbol(tokens.back(), '*') &&
                  (tokens.size() == 1 || isSymbol(tokens[tokens.size() - 2], '.'));
    std::size_t column = 0;
    while (column + 2 < tokens.size() && isName(tokens[column]) &&
           isSymbol(tokens[column + 1], '.'))
        column += 2;
    const std::size_t left = tokens.size() - column;
    const bool aliased = left == 2 || (left == 3 && isKeyword(tokens[column + 1], "AS"));
    if (aliased && isName(tokens[column]) && tokens.back().kind != TokenKind::symbol)
        item.aliasedColumn = unquotedName(tokens[column]);
    return item;
}

}  // namespace

std::string unquotedName(const SqlToken& token) {
    if (token.kind == TokenKind::word) return std::string(token.text);
    const char quote = token.text.back();
    const std::string_view inner = token.text.substr(1, token.text.size() - 2);
    return replaceText(inner, std::string(2, quote), std::string(1, quote), Compare::binary);
}

std::string singleStatement(std::string_view sql, const SqlSyntax& syntax) {
    const auto tokens = tokensOf(sql, syntax);
    const auto isComment = [](const SqlToken& t) { return t.kind == TokenKind::comment; };
    const auto separator = std::find_if(tokens.begin(), tokens.end(), [](const SqlToken& t) {
        return t.kind == TokenKind::separator;
    });
    if (std::all_of(tokens.begin(), separator, isComment))
        throw RuntimeError(error_number::statementFailed, "The text contains no statement");
    if (separator == tokens.end()) return std::string(sql);
    if (!std::all_of(separator + 1, tokens.end(), isComment))
        throw RuntimeError(error_number::statementFailed,
                           "The text contains more than one statement");
    return std::string(sql.data(), separator->text.data());
}

std::vector<std::string_view> wordsOf(std::string_view sql, const SqlSyntax& syntax) {
    std::vector<std::string_view> words;
    for (const SqlToken& token : tokensOf(sql, syntax))
        if (token.kind == TokenKind::word) words.push_back(token.text);
    return words;
}

std::string withoutComments(std::string_view sql, const SqlSyntax& syntax) {
    std::string result;
    const char* copied = sql.data();
    for (const SqlToken& token : tokensOf(sql, syntax)) {
        if (token.kind != TokenKind::comment) continue;
        result.append(copied, token.text.data()).append(1, ' ');
        copied = token.text.data() + token.text.size();
    }
    return result.append(copied, sql.data() + sql.size());
}

std::optional<std::string> writableTable(std::string_view sql, const SqlSyntax& syntax) {
    const auto all = tokensOf(sql, syntax);
    const auto tokens = outerTokens(all);
    if (tokens.size() < 2 || !isKeyword(tokens[0], "SELECT") || isKeyword(tokens[1], "DISTINCT") ||
        isAggregated(all))
        return std::nullopt;
    const auto end = tokens.end();
    auto token =
        std::find_if(tokens.begin(), end, [](const SqlToken& t) { return isKeyword(t, "FROM"); });
    if (token == end || ++token == end || !isName(*token)) return std::nullopt;

    const char* const first = token->text.data();
    while (token + 1 != end && token + 2 != end && isSymbol(token[1], '.') && isName(token[2]))
        token += 2;
    std::string table(first, token->text.data() + token->text.size());

    if (++token != end && isKeyword(*token, "AS")) ++token;
    if (token != end && isName(*token)) ++token;
    if (token != end && token->kind != TokenKind::separator && !isOneOf(*token, clausesAfterTable))
        return std::nullopt;
    if (std::any_of(token, end, [](const SqlToken& t) { return isOneOf(t, combiningClauses); }))
        return std::nullopt;
    return table;
}

std::vector<SelectItem> selectItems(std::string_view sql, const SqlSyntax& syntax) {
    const auto tokens = outerTokens(tokensOf(sql, syntax));
    if (tokens.empty() || !isKeyword(tokens.front(), "SELECT")) return {};
    std::vector<SelectItem> items;
    std::vector<SqlToken> item;
    for (auto token = tokens.begin() + 1; token != tokens.end() && !isKeyword(*token, "FROM");
         ++token) {
        if (!isSymbol(*token, ',')) {
            item.push_back(*token);
            continue;
        }
        items.push_back(selectItem(item));
        item.clear();
    }
    items.push_back(selectItem(item));
    return items;
}

}  // namespace catalogador::sql
