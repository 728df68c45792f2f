#include "adapters/odbc/driver_errors.h"

#include <string_view>

#include "adapters/sql/dialect.h"

namespace catalogador::odbc {

namespace {

struct CauseOfState {
    /// A whole state or the beginning of several.
    std::string_view state;
    ErrorCause cause;
};
constexpr CauseOfState causesOfStates[] = {
    {"40003", ErrorCause::outcomeUnknown},
    {"40001", ErrorCause::conflict},
    {"40P01", ErrorCause::conflict},
    {"55P03", ErrorCause::locked},
    {"25006", ErrorCause::readOnly},
    {"53100", ErrorCause::full},
    {"08", ErrorCause::lost},
    {"57P0", ErrorCause::lost},
};

ErrorCause causeOf(const DiagnosticRecord& record) {
    // The engine's own numbers say more than the states, of which several stand for anything.
    for (const sql::Dialect* dialect : sql::dialects()) {
        const std::string_view mark = dialect->facts().errorMark;
        if (mark.empty() || record.message.find(mark) == std::string::npos) continue;
        if (const auto cause = dialect->causeOf(record.number)) return *cause;
    }
    for (const auto& [state, cause] : causesOfStates)
        if (record.state.starts_with(state)) return cause;
    return ErrorCause::unknown;
}

}  // namespace

std::vector<DiagnosticRecord> diagnosticRecords(SQLSMALLINT kind, SQLHANDLE handle) {
    std::vector<DiagnosticRecord> records;
    DiagnosticRecord record;
    for (SQLSMALLINT number = 1; readDiagnostic(kind, handle, number, record); ++number)
        records.push_back(record);
    return records;
}

std::string joined(const std::vector<DiagnosticRecord>& records) {
    std::string all;
    for (const DiagnosticRecord& record : records) {
        if (!all.empty()) all += "; ";
        all += record.state + ": " + record.message;
    }
    return all;
}

ErrorCause causeOf(const std::vector<DiagnosticRecord>& records) {
    for (const DiagnosticRecord& record : records)
        if (const ErrorCause cause = causeOf(record); cause != ErrorCause::unknown) return cause;
    return ErrorCause::unknown;
}

}  // namespace catalogador::odbc
