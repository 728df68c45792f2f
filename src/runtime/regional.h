#pragma once
#include <string>

namespace catalogador {

enum class DateOrder { dayMonthYear, monthDayYear, yearMonthDay };

/// How numbers and dates are written where the program runs. The separators are one character
/// each (UTF-8, so possibly several bytes).
struct Regional {
    std::string decimal = ".";
    std::string thousands = ",";
    DateOrder dateOrder = DateOrder::dayMonthYear;
    std::string dateSeparator = "/";
};

}  // namespace catalogador
