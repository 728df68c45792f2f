#include "adapters/services/service_queries.h"

#include <algorithm>

#include "runtime/convert.h"

namespace catalogador::services {

namespace {

bool same(const Variant& stored, const Variant& wanted) {
    return equalValues(stored, wanted, Regional{}).value_or(false);
}

std::vector<std::vector<Variant>> askDatabase(rdoSession& session, const TableQuestion& question) {
    std::string sql = "SELECT ";
    for (const std::string& column : question.columns) sql += column + ", ";
    std::string condition;
    std::vector<Variant> values;
    for (const auto& [column, value] : question.conditions) {
        sql += (values.empty() ? "" : ", ") + column;
        condition += (values.empty() ? " WHERE " : " AND ") + column + " = ?";
        values.push_back(value);
    }
    auto rows = session.query(sql + " FROM " + question.table + condition, values);
    // By the rules of some databases "ANA", "aná" and "ana " are the same text as "ana".
    const std::size_t asked = question.columns.size();
    std::erase_if(rows, [&](const std::vector<Variant>& row) {
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!same(row[asked + i], values[i])) return true;
        return false;
    });
    for (auto& row : rows) row.resize(asked);
    return rows;
}

bool fits(const rdoResultset& rows, const TableQuestion& question) {
    return std::all_of(
        question.conditions.begin(), question.conditions.end(),
        [&](const auto& condition) { return same(rows.value(condition.first), condition.second); });
}

std::vector<std::vector<Variant>> readAll(rdoConnection& connection,
                                          const TableQuestion& question) {
    std::vector<std::vector<Variant>> found;
    const auto rows = connection.OpenResultset("Select * From " + question.table);
    for (; !rows->atEnd(); rows->MoveNext()) {
        if (!fits(*rows, question)) continue;
        auto& row = found.emplace_back();
        for (const std::string& column : question.columns) row.push_back(rows->value(column));
    }
    rows->Close();
    return found;
}

}  // namespace

std::vector<std::vector<Variant>> rowsWhere(rdoConnection& connection,
                                            const TableQuestion& question) {
    if (rdoSession* session = connection.session()) return askDatabase(*session, question);
    return readAll(connection, question);
}

}  // namespace catalogador::services
