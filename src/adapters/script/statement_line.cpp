#include "adapters/script/statement_line.h"

#include <algorithm>
#include <array>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::script {

namespace {

constexpr std::array<std::string_view, 5> wordsOfQueries{"SELECT", "WITH", "PRAGMA", "VALUES",
                                                         "SHOW"};

bool returnsRows(const std::string& sql) {
    const std::size_t from = sql.find_first_not_of(" \t\r\n(");
    if (from == std::string::npos) return false;
    const std::size_t end = sql.find_first_of(" \t\r\n(*'\"", from);
    const std::string first = upperCase(std::string_view(sql).substr(from, end - from));
    return std::find(wordsOfQueries.begin(), wordsOfQueries.end(), first) != wordsOfQueries.end();
}

void fetch(rdoResultset& rows, Json& event) {
    for (int index = 0; index < rows.columnCount(); ++index)
        event["columns"].push_back(rows.column(index).name);
    for (; !rows.atEnd(); rows.MoveNext()) {
        Json row = Json::array();
        for (int index = 0; index < rows.columnCount(); ++index)
            row.push_back(jsonOf(rows.value(index)));
        event["rows"].push_back(std::move(row));
    }
    rows.Close();
}

}  // namespace

Json runStatement(const ConnectionFactory& connect, const std::string& sql) {
    Json event = {
        {"event", "sql"}, {"columns", Json::array()}, {"rows", Json::array()}, {"affected", 0}};
    try {
        const auto connection = connect();
        if (returnsRows(sql))
            fetch(*connection->OpenResultset(sql), event);
        else
            event["affected"] = connection->Execute(sql);
    } catch (const RuntimeError& error) {
        event["error"] = errorText(error.number(), error.description());
    }
    return event;
}

}  // namespace catalogador::script
