#include "adapters/services/service_queries.h"

#include <algorithm>

#include "runtime/convert.h"

namespace catalogador {

namespace {

std::vector<std::vector<Variant>> askDatabase(rdoSession& session, const TableQuestion& question) {
    std::string sql = "SELECT ";
    for (const std::string& column : question.columns)
        sql += (column == question.columns.front() ? "" : ", ") + column;
    sql += " FROM " + question.table;
    std::vector<Variant> values;
    for (const auto& [column, value] : question.conditions) {
        sql += (values.empty() ? " WHERE " : " AND ") + column + " = ?";
        values.push_back(value);
    }
    return session.query(sql, values);
}

bool fits(const rdoResultset& rows, const TableQuestion& question) {
    return std::all_of(
        question.conditions.begin(), question.conditions.end(), [&](const auto& condition) {
            return equalValues(rows.value(condition.first), condition.second, Regional{})
                .value_or(false);
        });
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

}  // namespace catalogador
