#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/controls/record_grid.h"
#include "runtime/regional.h"

namespace catalogador {

/// The lists of codes, with commas between them, that view 10 keeps for each user, by their
/// numbers in genListas.
namespace user_list {
/// All codes, in the order of the list.
constexpr std::int16_t order = 1;
/// The codes whose yes/no field is not ticked.
constexpr std::int16_t unticked = 2;
}  // namespace user_list

void appendCode(std::string& list, std::string_view code);
bool listHasCode(std::string_view list, std::string_view code);

/// The codes of all rows from top to bottom, hidden ones included.
std::string codesInOrder(const RecordGrid& grid);
/// The codes of the rows that are not ticked. Whether the record `code` is ticked is `ticked`,
/// because the list does not know of its change yet.
std::string untickedCodes(const RecordGrid& grid, std::int32_t code, bool ticked,
                          const Regional& regional);

}  // namespace catalogador
