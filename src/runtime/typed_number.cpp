#include "runtime/typed_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <span>

#include "runtime/text.h"

namespace catalogador {

namespace {

/// MariaDB takes 65 digits in a statement.
constexpr std::int64_t mostDigits = 64;
/// Exponents beyond this are all the same: nothing or more than there is.
constexpr std::int64_t largestExponent = 100'000;
constexpr std::size_t groupLength = 3;

constexpr std::array<std::string_view, 4> groupingBlanks{" ", "\u00A0", "\u2009", "\u202F"};
constexpr std::array<std::string_view, 2> groupingApostrophes{"'", "’"};

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

std::string_view trimBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view takeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

/// What a locale groups digits with: its own separator and those that look like it.
std::span<const std::string_view> groupingSeparators(const std::string_view& own) {
    for (const std::span<const std::string_view> alike :
         {std::span<const std::string_view>(groupingBlanks),
          std::span<const std::string_view>(groupingApostrophes)})
        if (std::find(alike.begin(), alike.end(), own) != alike.end()) return alike;
    return {&own, own.empty() ? 0U : 1U};
}

/// Takes one more group of three digits and the separator before it.
bool takeGroup(std::string_view& text, std::span<const std::string_view> separators,
               std::string& digits) {
    for (const std::string_view separator : separators) {
        if (!text.starts_with(separator)) continue;
        std::string_view rest = text.substr(separator.size());
        const std::string_view group = takeDigits(rest);
        if (group.size() != groupLength) continue;
        digits += group;
        text = rest;
        return true;
    }
    return false;
}

/// The digits before the decimal separator. A zero begins no group: "0.123" where the point groups
/// was meant to be something else than 123.
std::string takeWholePart(std::string_view& text, const Regional& regional) {
    std::string digits(takeDigits(text));
    if (digits.empty() || digits.size() > groupLength || digits.front() == '0') return digits;
    if (regional.thousands == regional.decimal) return digits;
    const std::string_view own = regional.thousands;
    const auto separators = groupingSeparators(own);
    while (takeGroup(text, separators, digits)) {
    }
    return digits;
}

std::int64_t takeExponent(std::string_view& text) {
    if (text.empty() || std::string_view("eEdD").find(text.front()) == std::string_view::npos)
        return 0;
    std::string_view rest = text.substr(1);
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+')) rest.remove_prefix(1);
    const std::string_view digits = takeDigits(rest);
    if (digits.empty()) return 0;
    text = rest;
    std::int64_t exponent = 0;
    for (const char digit : digits)
        exponent = std::min(largestExponent, 10 * exponent + (digit - '0'));
    return negative ? -exponent : exponent;
}

/// A number without its sign: 0.`digits` times ten to the power of `point`.
struct Magnitude {
    std::string digits;
    std::int64_t point = 0;
    /// Zeros at either end are kept as they were typed unless there is an exponent.
    bool hasExponent = false;

    /// Digits that it takes without an exponent.
    std::int64_t length() const {
        return std::max(point, static_cast<std::int64_t>(digits.size())) -
               std::min<std::int64_t>(point, 0);
    }
};

std::optional<Magnitude> takeMagnitude(std::string_view& text, const Regional& regional) {
    Magnitude number;
    number.digits = takeWholePart(text, regional);
    number.point = static_cast<std::int64_t>(number.digits.size());
    if (!regional.decimal.empty() && text.starts_with(regional.decimal)) {
        text.remove_prefix(regional.decimal.size());
        number.digits += takeDigits(text);
    }
    if (number.digits.empty()) return std::nullopt;
    const std::size_t before = text.size();
    number.point += takeExponent(text);
    number.hasExponent = text.size() != before;
    return number;
}

void removeOuterZeros(Magnitude& number) {
    const std::size_t first = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, first);
    number.point -= static_cast<std::int64_t>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
}

/// With an exponent: "1.25e-70".
std::string scientificText(Magnitude number) {
    removeOuterZeros(number);
    std::string text = number.digits.substr(0, 1);
    if (number.digits.size() > 1) text += "." + number.digits.substr(1);
    return text + "e" + decimalText(number.point - 1);
}

/// Without one: "1250" or "0.00125".
std::string plainText(Magnitude number) {
    if (number.hasExponent) removeOuterZeros(number);
    const auto count = static_cast<std::int64_t>(number.digits.size());
    if (number.point <= 0)
        return "0." + std::string(static_cast<std::size_t>(-number.point), '0') + number.digits;
    if (number.point >= count)
        return number.digits + std::string(static_cast<std::size_t>(number.point - count), '0');
    return number.digits.insert(static_cast<std::size_t>(number.point), ".");
}

std::optional<TypedNumber> numberOf(Magnitude number, bool negative) {
    if (number.digits.find_first_not_of('0') == std::string::npos) {
        const bool asTyped = number.length() <= mostDigits && !number.hasExponent;
        return TypedNumber{0, asTyped ? plainText(number) : "0"};
    }
    if (number.length() > mostDigits) removeOuterZeros(number);
    const bool plain = number.length() <= mostDigits;
    const std::string exact = scientificText(number);
    double value = 0;
    const auto result = std::from_chars(exact.data(), exact.data() + exact.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (exact.find("e-") == std::string::npos) return std::nullopt;
        return TypedNumber{0, "0"};
    }
    std::string text = plain ? plainText(number) : exact;
    if (negative) {
        value = -value;
        text.insert(0, "-");
    }
    return TypedNumber{value, std::move(text)};
}

std::optional<double> basedText(std::string_view text) {
    if (text.size() < 2 || text.front() != '&') return std::nullopt;
    const char letter = text[1];
    std::string_view rest = text.substr(2);
    const bool hexadecimal = letter == 'H' || letter == 'h';
    if (!hexadecimal && letter != 'O' && letter != 'o') return std::nullopt;
    const auto value = takeBasedNumber(rest, hexadecimal ? 16 : 8);
    return rest.empty() ? value : std::nullopt;
}

}  // namespace

std::optional<double> takeBasedNumber(std::string_view& digits, unsigned base) {
    std::uint64_t value = 0;
    std::size_t count = 0;
    while (count < digits.size()) {
        const int digit = digitValue(digits[count]);
        if (digit < 0 || static_cast<unsigned>(digit) >= base) break;
        value = value * base + static_cast<unsigned>(digit);
        if (value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
        ++count;
    }
    if (count == 0) return std::nullopt;
    digits.remove_prefix(count);
    if (value <= std::numeric_limits<std::uint16_t>::max())
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

std::optional<TypedNumber> typedNumber(std::string_view text, const Regional& regional) {
    text = trimBlanks(text);
    if (const auto based = basedText(text))
        return TypedNumber{*based, decimalText(static_cast<std::int64_t>(*based))};
    bool negative = false;
    bool sign = false;
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') {
        negative = sign = true;
        text = trimBlanks(text.substr(1, text.size() - 2));
    } else if (text.starts_with('+') || text.starts_with('-')) {
        negative = text.front() == '-';
        sign = true;
        text = trimBlanks(text.substr(1));
    }
    const auto magnitude = takeMagnitude(text, regional);
    if (!magnitude) return std::nullopt;
    text = trimBlanks(text);
    if (!sign && (text == "+" || text == "-")) {
        negative = text == "-";
        text = {};
    }
    if (!text.empty()) return std::nullopt;
    return numberOf(*magnitude, negative);
}

}  // namespace catalogador
