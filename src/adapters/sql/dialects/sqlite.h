#pragma once
#include "adapters/sql/dialect.h"

namespace catalogador::sql {

/// What SQLite does, over its driver or without one.
const Dialect& sqliteDialect();

}  // namespace catalogador::sql
