#pragma once
#include <string>
#include <vector>

#include "adapters/odbc/driver_text.h"
#include "runtime/error.h"

namespace catalogador::odbc {

/// Everything that the driver last reported on a handle.
std::vector<DiagnosticRecord> diagnosticRecords(SQLSMALLINT kind, SQLHANDLE handle);
/// "SQLSTATE: text", several joined by "; ".
std::string joined(const std::vector<DiagnosticRecord>& records);
/// What the first record that tells a cause says. The states are those of the standard and of
/// PostgreSQL; MariaDB and SQLite tell more by their own numbers.
ErrorCause causeOf(const std::vector<DiagnosticRecord>& records);

}  // namespace catalogador::odbc
