#include "adapters/demo/table_rows.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::demo {

namespace {

std::string quoted(std::string_view text) {
    return "'" + replaceText(text, "'", "''", Compare::binary) + "'";
}

std::string numberText(double number) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    return {buffer.data(), end};
}

}  // namespace

std::string sqlLiteral(const Variant& value) {
    return std::visit(
        [](const auto& content) -> std::string {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, Null>) return "NULL";
            if constexpr (std::is_same_v<Content, bool>) return content ? "TRUE" : "FALSE";
            if constexpr (std::is_same_v<Content, std::int64_t>) return std::to_string(content);
            if constexpr (std::is_same_v<Content, double>) return numberText(content);
            if constexpr (std::is_same_v<Content, Decimal>) return content.text;
            if constexpr (std::is_same_v<Content, Date>) return quoted(isoText(content));
            if constexpr (std::is_same_v<Content, std::string>) return quoted(content);
        },
        value.storage());
}

std::vector<std::string> insertStatements(const TableRows& table, std::size_t rowsPerStatement) {
    std::vector<std::string> statements;
    const std::string start = "INSERT INTO " + table.table + " (" + table.columns + ") VALUES";
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const bool first = i % rowsPerStatement == 0;
        if (first) statements.push_back(start);
        std::string& statement = statements.back();
        statement += first ? "\n(" : ",\n(";
        std::string_view separator;
        for (const Variant& value : table.rows[i]) {
            statement += separator;
            statement += sqlLiteral(value);
            separator = ", ";
        }
        statement += ")";
    }
    return statements;
}

}  // namespace catalogador::demo
