#include "adapters/checks/numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "runtime/text.h"

namespace catalogador::checks {

namespace {

template <class T>
bool fits(std::int64_t number) {
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

/// Beyond this a double no longer tells one whole number from the next.
constexpr double largestExact = 9.0e15;

}  // namespace

std::optional<double> anyNumber(std::string_view text) {
    text = trim(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc() || stopped != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    const auto number = anyNumber(text);
    if (!number || *number != std::floor(*number) || std::abs(*number) > largestExact)
        return std::nullopt;
    return static_cast<std::int64_t>(*number);
}

bool fitsSmall(std::int64_t number) {
    return fits<std::int16_t>(number);
}

bool fitsLong(std::int64_t number) {
    return fits<std::int32_t>(number);
}

}  // namespace catalogador::checks
