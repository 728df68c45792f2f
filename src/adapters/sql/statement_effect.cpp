#include "adapters/sql/statement_effect.h"

#include <algorithm>

namespace catalogador::sql {

namespace {

/// Words that make a statement write wherever they stand in it, unless they name a function.
bool writesInside(const std::vector<SqlToken>& tokens) {
    for (auto token = tokens.begin(); token != tokens.end(); ++token) {
        const auto after = token + 1;
        if (isOneOf(*token, {"INTO"})) return true;
        if (isOneOf(*token, {"INSERT", "UPDATE", "DELETE", "MERGE", "REPLACE"}) &&
            (after == tokens.end() || !isSymbol(*after, '(')))
            return true;
    }
    return false;
}

}  // namespace

StatementEffect effectOf(std::string_view sql, const SqlSyntax& syntax) {
    std::vector<SqlToken> tokens = tokensOf(sql, syntax);
    std::erase_if(tokens, [](const SqlToken& token) { return token.kind == TokenKind::comment; });
    const auto first = std::find_if(tokens.begin(), tokens.end(),
                                    [](const SqlToken& token) { return !isSymbol(token, '('); });
    if (first == tokens.end()) return StatementEffect::other;
    if (isOneOf(*first, {"INSERT", "UPDATE", "DELETE", "MERGE", "REPLACE"}))
        return StatementEffect::writesRows;
    if (isOneOf(*first, {"SELECT", "VALUES"}))
        return writesInside(tokens) ? StatementEffect::other : StatementEffect::reads;
    if (isOneOf(*first, {"WITH"}))
        return writesInside(tokens) ? StatementEffect::writesRows : StatementEffect::reads;
    return StatementEffect::other;
}

StatementPlan planOf(std::string_view sql, const SqlSyntax& syntax) {
    return {effectOf(sql, syntax) != StatementEffect::reads,
            writableTable(sql, syntax).value_or(std::string())};
}

}  // namespace catalogador::sql
