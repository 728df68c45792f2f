#include "adapters/sql/row_identity.h"

#include "runtime/text.h"

namespace catalogador::sql {

std::string withColumns(std::string_view sql, const std::vector<std::string>& columns,
                        const SqlSyntax& syntax) {
    int depth = 0;
    for (const SqlToken& token : tokensOf(sql, syntax)) {
        if (token.text == "(") ++depth;
        if (token.text == ")") --depth;
        if (depth > 0 || !isKeyword(token, "FROM")) continue;
        std::string result(sql.data(), token.text.data());
        for (const std::string& column : columns) result += ", " + column;
        return result.append(" ").append(token.text.data(), sql.data() + sql.size());
    }
    return std::string(sql);
}

}  // namespace catalogador::sql
