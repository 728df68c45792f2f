#pragma once
#include <optional>
#include <string_view>

namespace catalogador {

/// The number that a cell holds, as a user writes it: blanks around, a sign, digits with one point
/// or comma. nullopt when the cell holds anything else.
std::optional<double> cellNumber(std::string_view text);

}  // namespace catalogador
