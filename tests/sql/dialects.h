#pragma once
#include "adapters/sql/dialect.h"

namespace catalogador::dialects {

inline const sql::Dialect& sqlite = *sql::dialectNamed("sqlite");
inline const sql::Dialect& postgresql = *sql::dialectNamed("postgresql");
inline const sql::Dialect& mariadb = *sql::dialectNamed("mariadb");
inline const sql::Dialect& other = sql::standardDialect();

}  // namespace catalogador::dialects
