#pragma once
#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador {

/// Local date and time of the database server, without the fraction of the second. For a SQLite
/// file that is this machine. Raises RuntimeError.
Date serverTime(rdoConnection& connection);

}  // namespace catalogador
