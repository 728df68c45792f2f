#include "adapters/sql/write_statements.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "adapters/sql/odbc_api.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sql {

namespace {

/// Numbers are read as decimal text or in another width than they are stored in, so that equality
/// would miss: a neighbourhood far smaller than any change a user makes stands for it.
constexpr double doubleTolerance = 1e-13;
constexpr double singleTolerance = 1e-6;

bool isReal(ColumnKind kind) {
    return kind == ColumnKind::real || kind == ColumnKind::single;
}

bool isDateLike(ColumnKind kind) {
    return kind == ColumnKind::date || kind == ColumnKind::timestamp;
}

Parameter textFor(const Dialect& dialect, const ColumnInfo& column, std::string text) {
    const bool typed = dialect.facts().typesTexts && column.kind != ColumnKind::text;
    return {std::move(text), typed ? columnTypeCode(column) : SQL_VARCHAR};
}

Parameter dateFor(const Dialect& dialect, const ColumnInfo& column, const Date& date) {
    std::string text = isoText(date);
    const bool midnight =
        date.hour == 0 && date.minute == 0 && date.second == 0 && date.nanosecond == 0;
    if (column.kind == ColumnKind::date && (midnight || !dialect.facts().keepsTimeInDates))
        text = text.substr(0, text.find(' '));
    return textFor(dialect, column, std::move(text));
}

template <class Number>
Parameter numberFor(const ColumnInfo& column, Number number, std::string text) {
    if (column.kind == ColumnKind::boolean) return {number != Number{}, SQL_BIT};
    if (column.kind == ColumnKind::text) return {std::move(text), SQL_VARCHAR};
    return {number, std::is_same_v<Number, double> ? SQL_DOUBLE : SQL_BIGINT};
}

/// A list of names, or of what stands for their values.
class List {
  public:
    explicit List(std::string separator) : separator_(std::move(separator)) {}
    void add(const std::string& item) { text_ += (text_.empty() ? "" : separator_) + item; }
    [[nodiscard]] const std::string& text() const { return text_; }

  private:
    std::string separator_;
    std::string text_;
};

std::string placeFor(const Dialect& dialect, const Assignment& assignment,
                     std::vector<Parameter>& parameters) {
    if (assignment.value.isNull()) return "NULL";
    parameters.push_back(parameterFor(dialect, *assignment.column, assignment.value));
    return "?";
}

/// The conditions "column has the value" of an UPDATE or DELETE.
class Conditions {
  public:
    explicit Conditions(const Dialect& dialect) : dialect_(dialect) {}

    void add(const ExpectedValue& expected) {
        const ColumnInfo& column = *expected.column;
        if (const auto* exact = std::get_if<Parameter>(&expected.value))
            return addExact(column, *exact);
        if (!dialect_.isComparable(column)) return;
        if (const auto* given = std::get_if<Variant>(&expected.value)) {
            if (given->isNull())
                addNull(column);
            else
                addEqual(column, parameterFor(dialect_, column, *given));
        } else if (const auto& text = std::get<std::optional<std::string>>(expected.value)) {
            addRead(column, *text);
        } else {
            addNull(column);
        }
    }

    [[nodiscard]] ParameterizedStatement after(std::string head,
                                               std::vector<Parameter> parameters = {}) const {
        if (conditions_.text().empty())
            throw RuntimeError(error_number::statementFailed,
                               "The row cannot be written: none of the columns read identifies it");
        parameters.insert(parameters.end(), parameters_.begin(), parameters_.end());
        return {std::move(head) + " WHERE " + conditions_.text(), std::move(parameters)};
    }

  private:
    [[nodiscard]] std::string name(const ColumnInfo& column) const {
        return dialect_.quotedName(column.baseName);
    }

    void addExact(const ColumnInfo& column, const Parameter& value) {
        if (column.baseName.empty()) return;
        const bool isText = value.sqlType == SQL_VARCHAR;
        conditions_.add(isText ? dialect_.equalsText(name(column)) : name(column) + " = ?");
        parameters_.push_back(value);
    }

    void addNull(const ColumnInfo& column) { conditions_.add(name(column) + " IS NULL"); }

    void addRead(const ColumnInfo& column, const std::string& text) {
        Variant value = variantOf(text, column.kind);
        const bool isInteger = value.as<std::int64_t>() != nullptr;
        if (dialect_.facts().comparesAsText && !isInteger) {
            conditions_.add(dialect_.equalsText("CAST(" + name(column) + " AS TEXT)"));
            parameters_.push_back({text, SQL_VARCHAR});
        } else if (isReal(column.kind)) {
            if (const double* number = value.as<double>()) addNear(column, *number);
        } else if (isDateLike(column.kind)) {
            // The text keeps fractions and ranges that a Date does not have.
            addEqual(column, textFor(dialect_, column, text));
        } else {
            addEqual(column, parameterFor(dialect_, column, value));
        }
    }

    /// Equal to the letter, also where the database's own comparison is blind to case.
    void addEqual(const ColumnInfo& column, Parameter parameter) {
        if (const double* number = std::get_if<double>(&parameter.value)) {
            addNear(column, *number);
            return;
        }
        conditions_.add(dialect_.equals(name(column), column));
        parameters_.push_back(std::move(parameter));
    }

    void addNear(const ColumnInfo& column, double number) {
        const double margin =
            std::abs(number) *
            (column.kind == ColumnKind::single ? singleTolerance : doubleTolerance);
        conditions_.add(name(column) + " BETWEEN ? AND ?");
        parameters_.push_back({number - margin, SQL_DOUBLE});
        parameters_.push_back({number + margin, SQL_DOUBLE});
    }

    const Dialect& dialect_;
    List conditions_{" AND "};
    std::vector<Parameter> parameters_;
};

Conditions conditionsOf(const Dialect& dialect, const std::vector<ExpectedValue>& expected) {
    Conditions conditions(dialect);
    for (const ExpectedValue& value : expected) conditions.add(value);
    return conditions;
}

}  // namespace

Parameter parameterOf(const Variant& value) {
    if (const bool* flag = value.as<bool>()) return {*flag, SQL_BIT};
    if (const auto* number = value.as<std::int64_t>()) return {*number, SQL_BIGINT};
    if (const double* number = value.as<double>()) return {*number, SQL_DOUBLE};
    if (const auto* number = value.as<Decimal>()) return {number->text, SQL_DECIMAL};
    if (const Date* date = value.as<Date>()) return {isoText(*date), SQL_TYPE_TIMESTAMP};
    if (const auto* text = value.as<std::string>()) return {*text, SQL_VARCHAR};
    throw RuntimeError(error_number::invalidUseOfNull, "Invalid use of Null");
}

Parameter parameterFor(const Dialect& dialect, const ColumnInfo& column, const Variant& value) {
    if (const bool* flag = value.as<bool>()) {
        if (column.kind == ColumnKind::boolean) return {*flag, SQL_BIT};
        return numberFor(column, static_cast<std::int64_t>(*flag), *flag ? "1" : "0");
    }
    if (const auto* number = value.as<std::int64_t>())
        return numberFor(column, *number, decimalText(*number));
    if (const double* number = value.as<double>())
        return numberFor(column, *number, shortestText(*number));
    if (const auto* number = value.as<Decimal>()) return textFor(dialect, column, number->text);
    if (const Date* date = value.as<Date>()) return dateFor(dialect, column, *date);
    if (const auto* text = value.as<std::string>()) return textFor(dialect, column, *text);
    return parameterOf(value);
}

ParameterizedStatement insertStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<Assignment>& columns) {
    if (columns.empty())
        return {"INSERT INTO " + table + std::string(dialect.facts().insertOfDefaults), {}};
    List names(", ");
    List places(", ");
    ParameterizedStatement result;
    for (const Assignment& assignment : columns) {
        names.add(dialect.quotedName(assignment.column->baseName));
        places.add(placeFor(dialect, assignment, result.parameters));
    }
    result.text = "INSERT INTO " + table + " (" + names.text() + ") VALUES (" + places.text() + ")";
    return result;
}

ParameterizedStatement updateStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<Assignment>& columns,
                                       const std::vector<ExpectedValue>& expected) {
    List assignments(", ");
    std::vector<Parameter> parameters;
    for (const Assignment& assignment : columns) {
        const std::string place = placeFor(dialect, assignment, parameters);
        assignments.add(dialect.quotedName(assignment.column->baseName) + " = " + place);
    }
    return conditionsOf(dialect, expected)
        .after("UPDATE " + table + " SET " + assignments.text(), std::move(parameters));
}

ParameterizedStatement deleteStatement(const Dialect& dialect, const std::string& table,
                                       const std::vector<ExpectedValue>& expected) {
    return conditionsOf(dialect, expected).after("DELETE FROM " + table);
}

ParameterizedStatement countStatement(const Dialect& dialect, const std::string& table,
                                      const std::vector<ExpectedValue>& expected) {
    return conditionsOf(dialect, expected).after("SELECT COUNT(*) FROM " + table);
}

}  // namespace catalogador::sql
