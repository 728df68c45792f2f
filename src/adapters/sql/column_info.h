#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "runtime/variant.h"

namespace catalogador::sql {

/// What the values of a column are, whatever the database calls it.
enum class ColumnKind {
    boolean,
    integer,
    decimal,
    single,
    real,
    date,
    time,
    timestamp,
    text,
    binary,
    other
};

/// A column of a resultset, as far as reading and writing it goes.
struct ColumnInfo {
    /// As the statement calls it.
    std::string name;
    /// As its table calls it; empty when the column is computed.
    std::string baseName;
    ColumnKind kind = ColumnKind::text;
    /// SQL_… code of the data-access standard.
    int sqlType = 0;
    /// The database's own name of the type.
    std::string typeName;
    /// What the driver takes for the length of the longest value, in characters.
    std::size_t reportedLength = 0;
};

/// The code that hosts see for a column of that kind (bitColumnType for booleans).
int columnTypeCode(const ColumnInfo& column);

/// The value of a text as the database wrote it, by the kind of its column. A text that is no such
/// value (SQLite stores any text in any column) is given as text.
Variant variantOf(std::string text, ColumnKind kind);

/// Digits with an optional sign and one decimal point, and nothing else.
bool isPlainDecimal(std::string_view text);
/// The whole text as a finite number.
std::optional<double> finiteNumber(std::string_view text);
/// The shortest text that gives the same number back.
std::string shortestText(double value);

}  // namespace catalogador::sql
