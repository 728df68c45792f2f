#pragma once
#include <cstdint>
#include <string>

#include "platform/rdo.h"

namespace catalogador::services {

/// Draws the next code of a sequence of genNumeradores; no two clients ever get the same one. It is
/// given only when the database has answered that it is stored. Raises RuntimeError: noSequence
/// when no sequence has that name, sequenceUsedUp after the last code, 2147483647.
std::int32_t drawCode(rdoConnection& connection, const std::string& name);

}  // namespace catalogador::services
