#include "runtime/convert.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

#include "runtime/error.h"
#include "runtime/text.h"

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

/// Value of a digit in bases up to 16, or -1.
int digitValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

/// The number behind "&H" or "&O"; `text` begins after the letter and is moved past the digits.
/// Up to four hexadecimal digits are a 16-bit number with a sign, up to eight a 32-bit one.
std::optional<double> basedNumber(std::string_view& text, unsigned base) {
    std::uint64_t value = 0;
    std::size_t count = 0;
    while (count < text.size()) {
        const int digit = digitValue(text[count]);
        if (digit < 0 || static_cast<unsigned>(digit) >= base) break;
        value = value * base + static_cast<unsigned>(digit);
        if (value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
        ++count;
    }
    if (count == 0) return std::nullopt;
    text.remove_prefix(count);
    if (value <= std::numeric_limits<std::uint16_t>::max())
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
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
std::string takeNumber(std::string_view& text, std::string_view decimal,
                       std::string_view thousands) {
    std::string number;
    bool point = false;
    bool digits = false;
    while (!text.empty()) {
        if (isDigit(text.front())) {
            number += text.front();
            digits = true;
            text.remove_prefix(1);
        } else if (!point && text.starts_with(decimal)) {
            number += '.';
            point = true;
            text.remove_prefix(decimal.size());
        } else if (!point && digits && !thousands.empty() && text.starts_with(thousands)) {
            text.remove_prefix(thousands.size());
        } else {
            break;
        }
    }
    if (!digits) return {};
    if (!text.empty() && std::string_view("eEdD").find(text.front()) != std::string_view::npos) {
        std::string exponent = "e";
        std::string_view rest = text.substr(1);
        if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) {
            if (rest.front() == '-') exponent += '-';
            rest.remove_prefix(1);
        }
        const std::size_t before = exponent.size();
        while (!rest.empty() && isDigit(rest.front())) {
            exponent += rest.front();
            rest.remove_prefix(1);
        }
        if (exponent.size() > before) {
            number += exponent;
            text = rest;
        }
    }
    return number.front() == '.' ? "0" + number : number;
}

std::string_view trimBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::optional<double> basedText(std::string_view text) {
    if (text.size() < 2 || text.front() != '&') return std::nullopt;
    const char letter = text[1];
    std::string_view rest = text.substr(2);
    const bool hexadecimal = letter == 'H' || letter == 'h';
    if (!hexadecimal && letter != 'O' && letter != 'o') return std::nullopt;
    const auto value = basedNumber(rest, hexadecimal ? 16 : 8);
    return rest.empty() ? value : std::nullopt;
}

/// The number of a whole text in this locale.
std::optional<double> wholeNumber(std::string_view text, const Regional& regional) {
    text = trimBlanks(text);
    if (const auto based = basedText(text)) return based;
    bool negative = false;
    bool sign = false;
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') {
        negative = sign = true;
        text = trimBlanks(text.substr(1, text.size() - 2));
    } else if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        sign = true;
        text = trimBlanks(text.substr(1));
    }
    const std::string number = takeNumber(text, regional.decimal, regional.thousands);
    if (number.empty()) return std::nullopt;
    text = trimBlanks(text);
    if (!sign && text.size() == 1 && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text = {};
    }
    if (!text.empty()) return std::nullopt;
    const double value = parsed(number);
    if (std::isinf(value)) return std::nullopt;
    return negative ? -value : value;
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
            return basedNumber(rest, hexadecimal ? 16 : 8).value_or(0);
        return 0;
    }
    const bool negative = !rest.empty() && rest.front() == '-';
    if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) rest.remove_prefix(1);
    const std::string number = takeNumber(rest, ".", "");
    if (number.empty()) return 0;
    const double value = parsed(number);
    if (std::isinf(value)) overflow();
    return negative ? -value : value;
}

bool isNumeric(const Variant& value, const Regional& regional) {
    if (isNumberType(value)) return true;
    const std::string* text = value.as<std::string>();
    return text != nullptr && wholeNumber(*text, regional).has_value();
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
                                     if (const auto number = wholeNumber(text, regional))
                                         return *number;
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
