#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/controls/rows/packed_texts.h"

namespace catalogador {

/// The rows of a column in the order of their cells: empty ones, numbers by value (with point or
/// comma), then texts without regard to case; `descending` the other way round. Equal rows keep
/// the order in which `order` has them. An empty order stands for the rows as they are stored,
/// for the argument and for the result.
std::vector<std::uint32_t> rowsInOrder(const PackedTexts& texts, std::vector<std::uint32_t> order,
                                       std::size_t rows, bool descending);

}  // namespace catalogador
