#pragma once

#include <string>

#include "adapters/sql/odbc_api.h"

namespace catalogador::odbc {

// The calls of the driver manager that take or give texts. Narrow texts are UTF-8 for the driver
// managers of this system's own kind; that of Windows reads them in the code page of the desk, so
// there the wide calls are used.

/// How the driver hands a text over (SQL_C_…), and the bytes of its smallest unit, which is also
/// what its terminator takes.
#ifdef _WIN32
constexpr SQLSMALLINT transferredText = SQL_C_WCHAR;
constexpr std::size_t textUnit = sizeof(SQLWCHAR);
#else
constexpr SQLSMALLINT transferredText = SQL_C_CHAR;
constexpr std::size_t textUnit = 1;
#endif

/// The UTF-8 text of a value that was handed over.
std::string textFromDriver(const char* data, std::size_t bytes);
/// The bytes in which a text is handed to the driver, without a terminator.
std::string textForDriver(const std::string& text);
/// The type under which a driver expects the texts of a column of that type (SQL_…).
SQLSMALLINT parameterType(SQLSMALLINT sqlType);

SQLRETURN connectDriver(SQLHDBC connection, const std::string& connectionString);
SQLRETURN executeText(SQLHSTMT statement, const std::string& sql);
SQLRETURN prepareText(SQLHSTMT statement, const std::string& sql);
/// In two steps, for drivers that need it.
SQLRETURN executePreparedText(SQLHSTMT statement, const std::string& sql);
/// Name of the database product; empty when the driver does not tell.
std::string productName(SQLHDBC connection);
/// A text of a result column's description; empty when the driver does not tell.
std::string columnText(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT field);

struct DescribedColumn {
    std::string name;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
};
SQLRETURN describeColumn(SQLHSTMT statement, SQLUSMALLINT number, DescribedColumn& column);

struct DiagnosticRecord {
    std::string state;
    /// The engine's own number of the error.
    SQLINTEGER number = 0;
    std::string message;
};
/// False when there is no record of that number (from 1).
bool readDiagnostic(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                    DiagnosticRecord& record);

}  // namespace catalogador::odbc
