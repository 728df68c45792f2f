#include "adapters/sql/column_info.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "adapters/sql/odbc_api.h"
#include "platform/rdo.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::int64_t value = 0;
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

Variant numberOrText(std::string text) {
    if (const auto number = finiteNumber(text)) return *number;
    return text;
}

Variant integerOf(std::string text) {
    if (const auto number = wholeNumber(text)) return *number;
    const bool beyondRange = isPlainDecimal(text) && text.find('.') == std::string::npos;
    return beyondRange ? Variant(Decimal{std::move(text)}) : numberOrText(std::move(text));
}

Variant booleanOf(std::string text) {
    if (const auto number = wholeNumber(text)) return *number != 0;
    return text;
}

Variant dateOf(std::string text) {
    if (const auto date = dateFromIso(text)) return *date;
    return text;
}

}  // namespace

int columnTypeCode(const ColumnInfo& column) {
    switch (column.kind) {
        case ColumnKind::boolean:
            return bitColumnType;
        case ColumnKind::decimal:
            return column.sqlType == SQL_NUMERIC ? SQL_NUMERIC : SQL_DECIMAL;
        case ColumnKind::date:
            return SQL_TYPE_DATE;
        case ColumnKind::time:
            return SQL_TYPE_TIME;
        case ColumnKind::timestamp:
            return SQL_TYPE_TIMESTAMP;
        default:
            return column.sqlType;
    }
}

Variant variantOf(std::string text, ColumnKind kind) {
    switch (kind) {
        case ColumnKind::boolean:
            return booleanOf(std::move(text));
        case ColumnKind::integer:
            return integerOf(std::move(text));
        case ColumnKind::decimal:
            return isPlainDecimal(text) ? Variant(Decimal{std::move(text)})
                                        : numberOrText(std::move(text));
        case ColumnKind::single:
        case ColumnKind::real:
            return numberOrText(std::move(text));
        case ColumnKind::date:
        case ColumnKind::timestamp:
            return dateOf(std::move(text));
        default:
            return text;
    }
}

bool isPlainDecimal(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

std::optional<double> finiteNumber(std::string_view text) {
    double value = 0;
    if (text.starts_with('+')) text.remove_prefix(1);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string shortestText(double value) {
    std::array<char, 32> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

}  // namespace catalogador::sql
