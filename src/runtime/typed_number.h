#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "runtime/regional.h"

namespace catalogador {

/// A whole text that was read as a number.
struct TypedNumber {
    double value = 0;
    /// The same number as every database reads it: digits with "-" before them and "." between
    /// them, all digits that were typed. Only what takes more than 64 digits has an exponent.
    std::string text;
};

/// The one reading of numbers that somebody typed: signs before or after, parentheses for
/// negatives, the decimal separator of the locale, its grouping separator between groups of three
/// digits before that, an exponent (1e3, 1d3), &H and &O, blanks around. Where the locale groups
/// with a kind of blank or apostrophe, every kind of it groups, because keyboards have only one.
/// nullopt for a text that is no number as a whole, and for numbers beyond what there is.
std::optional<TypedNumber> typedNumber(std::string_view text, const Regional& regional);

/// The number behind "&H" (base 16) or "&O" (base 8); `digits` is moved past it. Up to four
/// hexadecimal digits are a 16-bit number with a sign, up to eight a 32-bit one.
std::optional<double> takeBasedNumber(std::string_view& digits, unsigned base);

}  // namespace catalogador
