#include "runtime/convert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/typed_number.h"

namespace catalogador {

namespace {

[[noreturn]] void raise(std::int32_t number, const char* description) {
    throw RuntimeError(number, description);
}
[[noreturn]] void typeMismatch() {
    raise(error_number::typeMismatch, "Type mismatch");
}
[[noreturn]] void overflow() {
    raise(error_number::overflow, "Overflow");
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

double parsed(const std::string& number) {
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool tiny = number.find("e-") != std::string::npos;
        return tiny ? 0.0 : std::numeric_limits<double>::infinity();
    }
    return value;
}

/// Takes digits, one decimal point and an exponent from the front of a text into a plain number.
std::string takeNumber(std::string_view text) {
    std::string number;
    bool point = false;
    bool digits = false;
    for (; !text.empty(); text.remove_prefix(1)) {
        const char c = text.front();
        if (!isDigit(c) && (c != '.' || point)) break;
        (c == '.' ? point : digits) = true;
        number += c;
    }
    if (!digits) return {};
    if (!text.empty() && std::string_view("eEdD").find(text.front()) != std::string_view::npos) {
        std::string exponent = "e";
        text.remove_prefix(1);
        if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
            if (text.front() == '-') exponent += '-';
            text.remove_prefix(1);
        }
        const std::size_t before = exponent.size();
        for (; !text.empty() && isDigit(text.front()); text.remove_prefix(1))
            exponent += text.front();
        if (exponent.size() > before) number += exponent;
    }
    return number.front() == '.' ? "0" + number : number;
}

/// The digits of a part of a date or time: two, or four.
class DigitPairs {
  public:
    DigitPairs(int number, std::size_t count) : first_(digits_.size() - count) {
        for (std::size_t i = digits_.size(); i > first_; number /= 10)
            digits_[--i] = static_cast<char>('0' + number % 10);
    }
    operator std::string_view() const { return {digits_.data() + first_, digits_.size() - first_}; }

  private:
    std::array<char, 4> digits_{};
    std::size_t first_;
};

template <class... F>
struct Overloaded : F... {
    using F::operator()...;
};
/// Older compilers do not find this by themselves.
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

double rounded(const Variant& value, const Regional& regional, double lowest, double highest) {
    const double number = std::nearbyint(toDouble(value, regional));
    if (!(number >= lowest && number <= highest)) overflow();
    return number;
}

bool isNumberType(const Variant& value) {
    return value.as<std::int64_t>() != nullptr || value.as<double>() != nullptr ||
           value.as<bool>() != nullptr || value.as<Decimal>() != nullptr;
}

std::string numberText(double value, const Regional& regional) {
    std::string text;
    appendNumberText(text, value, regional);
    return text;
}

std::string decimalNumberText(const Decimal& value, const Regional& regional) {
    std::string text;
    appendDecimalText(text, value.text, regional);
    return text;
}

std::string dateText(const Date& date, const Regional& regional) {
    std::string text;
    appendDateText(text, date, regional);
    return text;
}

}  // namespace

void appendNumberText(std::string& text, double number, const Regional& regional) {
    if (number == 0) {
        text += '0';
        return;
    }
    constexpr int significantDigits = 15;
    std::array<char, 40> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                      std::chars_format::general, significantDigits);
    for (const char* at = digits.data(); at != result.ptr; ++at) {
        if (*at == '.')
            text += regional.decimal;
        else
            text += *at == 'e' ? 'E' : *at;
    }
}

void appendDecimalText(std::string& text, std::string_view number, const Regional& regional) {
    if (number.find('.') != std::string_view::npos) {
        number = number.substr(0, number.find_last_not_of('0') + 1);
        if (number.ends_with('.')) number.remove_suffix(1);
    }
    if (number.empty() || number == "-") {
        text += '0';
        return;
    }
    if (number.starts_with("-.")) {
        text += '-';
        number.remove_prefix(1);
    }
    if (number.front() == '.') text += '0';
    const std::size_t point = number.find('.');
    text += number.substr(0, point);
    if (point == std::string_view::npos) return;
    text += regional.decimal;
    text += number.substr(point + 1);
}

void appendDateText(std::string& text, const Date& date, const Regional& regional) {
    const std::string& s = regional.dateSeparator;
    const DigitPairs day(date.day, 2);
    const DigitPairs month(date.month, 2);
    const DigitPairs year(date.year, 4);
    switch (regional.dateOrder) {
        case DateOrder::dayMonthYear:
            text.append(day).append(s).append(month).append(s).append(year);
            break;
        case DateOrder::monthDayYear:
            text.append(month).append(s).append(day).append(s).append(year);
            break;
        case DateOrder::yearMonthDay:
            text.append(year).append(s).append(month).append(s).append(day);
            break;
    }
    if (date.hour == 0 && date.minute == 0 && date.second == 0) return;
    text.append(" ").append(DigitPairs(date.hour, 2)).append(":");
    text.append(DigitPairs(date.minute, 2)).append(":").append(DigitPairs(date.second, 2));
}

double leadingNumber(std::string_view text) {
    std::string compact;
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r') compact += c;
    std::string_view rest = compact;
    if (rest.size() > 2 && rest.front() == '&') {
        const char letter = rest[1];
        rest.remove_prefix(2);
        const bool hexadecimal = letter == 'H' || letter == 'h';
        if (hexadecimal || letter == 'O' || letter == 'o')
            return takeBasedNumber(rest, hexadecimal ? 16 : 8).value_or(0);
        return 0;
    }
    const bool negative = !rest.empty() && rest.front() == '-';
    if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) rest.remove_prefix(1);
    const std::string number = takeNumber(rest);
    if (number.empty()) return 0;
    const double value = parsed(number);
    if (std::isinf(value)) overflow();
    return negative ? -value : value;
}

bool isNumeric(const Variant& value, const Regional& regional) {
    if (isNumberType(value)) return true;
    const std::string* text = value.as<std::string>();
    return text != nullptr && typedNumber(*text, regional).has_value();
}

std::string toText(const Variant& value, const Regional& regional) {
    return std::visit(
        Overloaded{[](Null) -> std::string {
                       raise(error_number::invalidUseOfNull, "Invalid use of Null");
                   },
                   [](bool flag) -> std::string { return flag ? "True" : "False"; },
                   [](std::int64_t number) { return decimalText(number); },
                   [&](double number) { return numberText(number, regional); },
                   [&](const Decimal& number) { return decimalNumberText(number, regional); },
                   [&](const Date& date) { return dateText(date, regional); },
                   [](const std::string& text) { return text; }},
        value.storage());
}

std::string toTextOrEmpty(const Variant& value, const Regional& regional) {
    return value.isNull() ? std::string() : toText(value, regional);
}

double toDouble(const Variant& value, const Regional& regional) {
    return std::visit(Overloaded{[](Null) -> double {
                                     raise(error_number::invalidUseOfNull, "Invalid use of Null");
                                 },
                                 [](bool flag) { return flag ? -1.0 : 0.0; },
                                 [](std::int64_t number) { return static_cast<double>(number); },
                                 [](double number) { return number; },
                                 [](const Decimal& number) { return parsed(number.text); },
                                 [](const Date&) -> double { typeMismatch(); },
                                 [&](const std::string& text) -> double {
                                     if (const auto number = typedNumber(text, regional))
                                         return number->value;
                                     typeMismatch();
                                 }},
                      value.storage());
}

std::uint8_t toByte(const Variant& value, const Regional& regional) {
    return static_cast<std::uint8_t>(rounded(value, regional, 0, 255));
}

std::int16_t toInteger(const Variant& value, const Regional& regional) {
    return static_cast<std::int16_t>(rounded(value, regional, -32768, 32767));
}

std::int32_t toLong(const Variant& value, const Regional& regional) {
    return static_cast<std::int32_t>(rounded(value, regional, -2147483648.0, 2147483647.0));
}

float toSingle(const Variant& value, const Regional& regional) {
    const double number = toDouble(value, regional);
    if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) overflow();
    return static_cast<float>(number);
}

bool toBoolean(const Variant& value, const Regional& regional) {
    if (const bool* flag = value.as<bool>()) return *flag;
    if (const std::string* text = value.as<std::string>()) {
        if (equalText(*text, "true")) return true;
        if (equalText(*text, "false")) return false;
    }
    return toDouble(value, regional) != 0;
}

std::optional<bool> equalValues(const Variant& left, const Variant& right,
                                const Regional& regional) {
    if (left.isNull() || right.isNull()) return std::nullopt;
    const bool numbers = (isNumberType(left) || isNumberType(right)) && isNumeric(left, regional) &&
                         isNumeric(right, regional);
    if (numbers) return toDouble(left, regional) == toDouble(right, regional);
    return toText(left, regional) == toText(right, regional);
}

}  // namespace catalogador
