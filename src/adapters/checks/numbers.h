#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace catalogador::checks {

/// A text that is a whole number and nothing else but blanks around it ("12", "-1", "12.0").
std::optional<std::int64_t> wholeNumber(std::string_view text);
/// A text that is a number and nothing else, with "." as decimal point.
std::optional<double> anyNumber(std::string_view text);

/// Whether a number fits the type that the screen keeps it in.
bool fitsSmall(std::int64_t number);
bool fitsLong(std::int64_t number);

}  // namespace catalogador::checks
