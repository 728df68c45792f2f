#include "adapters/sql/select_condition.h"

#include "runtime/text.h"

namespace catalogador::sql {

namespace {

bool endsCondition(const SqlToken& token) {
    return token.kind == TokenKind::separator ||
           isOneOf(token, {"ORDER", "LIMIT", "FOR", "OFFSET", "FETCH"});
}

bool isNamePart(const SqlToken& token) {
    return token.kind == TokenKind::word || token.kind == TokenKind::quotedName ||
           token.text == ".";
}

}  // namespace

std::string selectCondition(std::string_view sql, const SqlSyntax& syntax) {
    int depth = 0;
    bool afterFrom = false;
    bool nameBefore = false;
    const char* start = nullptr;
    const char* stop = sql.data() + sql.size();
    for (const SqlToken& token : tokensOf(sql, syntax)) {
        if (token.text == "(") ++depth;
        if (token.text == ")") --depth;
        if (depth > 0) continue;
        if (start != nullptr) {
            if (!endsCondition(token)) continue;
            stop = token.text.data();
            break;
        }
        if (isKeyword(token, "WHERE")) {
            start = token.text.data() + token.text.size();
        } else if (afterFrom) {
            const bool isName = isNamePart(token) && token.text != ".";
            if (isName && nameBefore) return {};
            nameBefore = isName;
        }
        afterFrom = afterFrom || isKeyword(token, "FROM");
    }
    if (start == nullptr) return {};
    return std::string(trim({start, static_cast<std::size_t>(stop - start)}));
}

}  // namespace catalogador::sql
