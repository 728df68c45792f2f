#include "adapters/odbc/driver_errors.h"

#include <algorithm>
#include <span>
#include <string_view>

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

struct CauseOfNumber {
    SQLINTEGER number;
    ErrorCause cause;
};
constexpr CauseOfNumber causesOfMariadb[] = {
    {1020, ErrorCause::conflict},        // changed since the transaction began
    {1213, ErrorCause::conflict},        // deadlock, or refused by the other nodes of a cluster
    {1205, ErrorCause::locked},          // lock wait timeout
    {1290, ErrorCause::readOnly},        // the server runs with --read-only
    {1792, ErrorCause::readOnly},        // a transaction that may only read
    {1836, ErrorCause::readOnly},        // read-only mode
    {1021, ErrorCause::full},            // disk full
    {1114, ErrorCause::full},            // table full
    {1180, ErrorCause::outcomeUnknown},  // the commit itself failed on the way
    {1047, ErrorCause::lost},            // a node that is not part of its cluster
    {1053, ErrorCause::lost},            // the server is ending
    {1927, ErrorCause::lost},            // somebody has ended the connection
    {2002, ErrorCause::lost},           {2003, ErrorCause::lost}, {2006, ErrorCause::lost},
    {2013, ErrorCause::lost},           {2055, ErrorCause::lost},
};
constexpr CauseOfNumber causesOfSqlite[] = {
    {5, ErrorCause::locked},  // another connection
    {6, ErrorCause::locked},  // another statement of this one
    {8, ErrorCause::readOnly},
    {13, ErrorCause::full},
};

ErrorCause causeOfNumber(SQLINTEGER number, std::span<const CauseOfNumber> causes) {
    const auto found = std::find_if(causes.begin(), causes.end(), [&](const CauseOfNumber& entry) {
        return entry.number == number;
    });
    return found == causes.end() ? ErrorCause::unknown : found->cause;
}

ErrorCause causeOf(const DiagnosticRecord& record) {
    if (record.message.find("[SQLite]") != std::string::npos)
        return causeOfNumber(record.number, causesOfSqlite);
    // The numbers of MariaDB say more than its states, of which several are everything's.
    if (record.message.find("[ma-") != std::string::npos) {
        const ErrorCause cause = causeOfNumber(record.number, causesOfMariadb);
        if (cause != ErrorCause::unknown) return cause;
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
