#pragma once
#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador::services {

/// Local date and time of the database server, to the microsecond where the server tells it, so
/// that no two saves of a record get the same stamp. For a SQLite file the server is this machine.
/// Raises RuntimeError.
Date serverTime(rdoConnection& connection);

}  // namespace catalogador::services
