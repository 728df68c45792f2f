#pragma once
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "adapters/sql/column_info.h"
#include "adapters/sql/dialect.h"
#include "runtime/variant.h"

namespace catalogador::sql {

/// A value for a "?" of a statement. `sqlType` is what the database is told a text to be.
struct Parameter {
    std::variant<bool, std::int64_t, double, std::string> value;
    int sqlType = 0;

    friend bool operator==(const Parameter&, const Parameter&) = default;
};

struct ParameterizedStatement {
    std::string text;
    std::vector<Parameter> parameters;
};

/// A column and the value it is to get.
struct Assignment {
    const ColumnInfo* column = nullptr;
    Variant value;
};

/// A column and the value that the row must still have: the text as the database gave it, the value
/// as the database has it where that is known, or, of a column written since, the value it was
/// given. A Null Variant and no text stand for NULL.
struct ExpectedValue {
    const ColumnInfo* column = nullptr;
    std::variant<std::optional<std::string>, Variant, Parameter> value;
};

/// A value on its own, for a statement whose "?" has no column.
Parameter parameterOf(const Variant& value);
/// A value, which must not be Null, for a column: converted where the column holds something
/// else, but a text is passed on as typed for the database to convert.
Parameter parameterFor(const Dialect& dialect, const ColumnInfo& column, const Variant& value);

/// INSERT of these columns; of none gives a row of default values. `table` is spelled as in SQL.
ParameterizedStatement insertStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<Assignment>& columns);
/// UPDATE of the rows that have the expected values. At least one assignment.
ParameterizedStatement updateStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<Assignment>& columns,
                                       const std::vector<ExpectedValue>& expected);
ParameterizedStatement deleteStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<ExpectedValue>& expected);
/// Counts the rows that have the expected values.
ParameterizedStatement countStatement(const Dialect& dialect, const std::string& table,
                                      const std::vector<ExpectedValue>& expected);

}  // namespace catalogador::sql
