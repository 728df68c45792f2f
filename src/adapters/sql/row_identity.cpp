#include "adapters/sql/row_identity.h"

#include <map>

#include "adapters/sql/sql_session.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

/// The columns of the key that suits best, of all that SHOW KEYS tells: the
/// primary one, or else one that is unique and has no Null and no column in
/// part.
std::vector<std::string> keyOf(const std::vector<std::vector<Variant>>& parts) {
    enum Answer : std::size_t {
        nonUnique = 1,
        keyName = 2,
        columnName = 4,
        partLength = 7,
        null = 9
    };
    std::map<std::string, std::vector<std::string>> keys;
    std::vector<std::string> unfit;
    for (const auto& part : parts) {
        const auto text = [&](Answer column) { return toTextOrEmpty(part.at(column), Regional{}); };
        const bool fits =
            text(nonUnique) == "0" && text(null) != "YES" && part.at(partLength).isNull();
        if (!fits) unfit.push_back(text(keyName));
        keys[text(keyName)].push_back(text(columnName));
    }
    for (const std::string& name : unfit) keys.erase(name);
    const auto primary = keys.find("PRIMARY");
    if (primary != keys.end()) return primary->second;
    return keys.empty() ? std::vector<std::string>() : keys.begin()->second;
}

RowIdentity mariadbIdentity(SqlSession& session, const std::string& table) {
    RowIdentity identity;
    identity.columns = keyOf(session.query("SHOW KEYS FROM " + table));
    if (!identity.columns.empty()) return identity;
    const auto rows = session.open("SELECT * FROM " + table + " WHERE 1 = 0");
    identity.eitherOfAlike = true;
    identity.lasting = false;
    for (const ColumnInfo& column : rows->columns) {
        identity.columns.push_back(column.name);
        // A value that cannot be compared may be where two rows differ.
        if (!isComparable(Dialect::mariadb, column)) identity.eitherOfAlike = false;
    }
    return identity;
}

}  // namespace

RowIdentity rowIdentity(SqlSession& session, const std::string& table) {
    switch (session.dialect()) {
        case Dialect::sqlite:
            return {{"_rowid_"}};
        case Dialect::postgresql:
            // A row that somebody writes moves. Parts of a table have addresses of
            // their own.
            return {{"ctid", "tableoid"}, false};
        case Dialect::mariadb:
            return mariadbIdentity(session, table);
        default:
            return {};
    }
}

std::string withColumns(std::string_view sql, const std::vector<std::string>& columns,
                        const SqlSyntax& syntax) {
    int depth = 0;
    for (const SqlToken& token : tokensOf(sql, syntax)) {
        if (token.text == "(") ++depth;
        if (token.text == ")") --depth;
        if (depth > 0 || token.kind != TokenKind::word || !equalText(token.text, "FROM")) continue;
        std::string result(sql.data(), token.text.data());
        for (const std::string& column : columns) result += ", " + column;
        return result.append(" ").append(token.text.data(), sql.data() + sql.size());
    }
    return std::string(sql);
}

}  // namespace catalogador::sql
