#include "adapters/odbc/bound_parameters.h"

#include <algorithm>

#include "adapters/odbc/driver_text.h"

namespace catalogador::odbc {

namespace {

struct Binding {
    SQLSMALLINT cType;
    const void* data;
    std::size_t size;
};

/// `text` is what the parameter's text became for the driver.
Binding bindingOf(const sql::Parameter& parameter, const std::string& text) {
    if (std::holds_alternative<std::string>(parameter.value))
        return {transferredText, text.data(), text.size()};
    if (const auto* flag = std::get_if<bool>(&parameter.value))
        return {SQL_C_BIT, flag, sizeof *flag};
    if (const auto* number = std::get_if<double>(&parameter.value))
        return {SQL_C_DOUBLE, number, sizeof *number};
    const auto* number = std::get_if<std::int64_t>(&parameter.value);
    return {SQL_C_SBIGINT, number, sizeof *number};
}

}  // namespace

BoundParameters::BoundParameters(const OdbcHandle& statement,
                                 const std::vector<sql::Parameter>& parameters)
    : statement_(statement), indicators_(parameters.size()), texts_(parameters.size()) {
    SQLUSMALLINT number = 0;
    for (const sql::Parameter& parameter : parameters) {
        if (const auto* text = std::get_if<std::string>(&parameter.value))
            texts_[number] = textForDriver(*text);
        bind(static_cast<SQLUSMALLINT>(number + 1), parameter, number);
        ++number;
    }
}

BoundParameters::~BoundParameters() {
    SQLFreeStmt(statement_.get(), SQL_RESET_PARAMS);
}

void BoundParameters::bind(SQLUSMALLINT number, const sql::Parameter& parameter,
                           std::size_t index) {
    const Binding binding = bindingOf(parameter, texts_[index]);
    SQLLEN& indicator = indicators_[index];
    indicator = static_cast<SQLLEN>(binding.size);
    const bool text = binding.cType == transferredText;
    // Drivers refuse a declared length of 0, also for an empty text.
    const SQLULEN declared = std::max<SQLULEN>(binding.size / (text ? textUnit : 1), 1);
    statement_.check(SQLBindParameter(statement_.get(), number, SQL_PARAM_INPUT, binding.cType,
                                      parameterType(static_cast<SQLSMALLINT>(parameter.sqlType)),
                                      declared, 0, const_cast<void*>(binding.data),
                                      static_cast<SQLLEN>(binding.size), &indicator));
}

}  // namespace catalogador::odbc
