#include "platform/controls/rows/cell_number.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string>

#include "runtime/text.h"

namespace catalogador {

namespace {

/// Powers of ten and whole numbers up to these are exact, and so is the rounding of their quotient.
constexpr std::size_t exactDigits = 15;
constexpr std::array<double, exactDigits + 1> powersOfTen{
    1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

struct Digits {
    std::uint64_t value = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
};

/// Digits with at most one separator, and nothing else.
std::optional<Digits> digitsOf(std::string_view text) {
    Digits digits;
    bool separator = false;
    for (const char c : text) {
        if (c >= '0' && c <= '9') {
            if (digits.count < exactDigits)
                digits.value = 10 * digits.value + static_cast<unsigned>(c - '0');
            ++digits.count;
            digits.decimals += separator ? 1 : 0;
        } else if ((c == '.' || c == ',') && !separator) {
            separator = true;
        } else {
            return std::nullopt;
        }
    }
    return digits.count > 0 ? std::optional(digits) : std::nullopt;
}

std::optional<double> longNumber(std::string text) {
    if (const auto comma = text.find(','); comma != std::string::npos) text[comma] = '.';
    double number = 0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}

}  // namespace

std::optional<double> cellNumber(std::string_view text) {
    // Most texts are known by their first character; what a number begins with comes before it.
    if (text.empty() || static_cast<unsigned char>(text.front()) > '9') return std::nullopt;
    text = trim(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    const auto digits = digitsOf(text.substr(negative ? 1 : 0));
    if (!digits) return std::nullopt;
    if (digits->count > exactDigits) return longNumber(std::string(text));
    const double number = static_cast<double>(digits->value) / powersOfTen.at(digits->decimals);
    return negative ? -number : number;
}

}  // namespace catalogador
