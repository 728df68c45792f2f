#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "platform/rdo.h"

namespace catalogador {

/// Draws the next code of a sequence of genNumeradores; no two clients ever get the same one.
/// nullopt when there is no sequence of that name or its last code, 2147483647, was drawn. Raises
/// RuntimeError.
std::optional<std::int32_t> drawCode(rdoConnection& connection, const std::string& name);

}  // namespace catalogador
