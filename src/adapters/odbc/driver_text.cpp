#include "adapters/odbc/driver_text.h"

#include <array>
#include <vector>

#ifdef _WIN32
#include "runtime/utf16.h"
#endif

namespace catalogador::odbc {

namespace {

constexpr std::size_t longestName = 1024;
constexpr SQLSMALLINT longestMessage = 4096;

#ifdef _WIN32
using Unit = SQLWCHAR;

std::basic_string<Unit> unitsOf(const std::string& text) {
    const std::u16string units = utf16Of(text);
    return {units.begin(), units.end()};
}
std::string textOfUnits(const Unit* units) {
    const std::basic_string<Unit> text(units);
    return utf8Of(std::u16string(text.begin(), text.end()));
}
#else
using Unit = SQLCHAR;

std::basic_string<Unit> unitsOf(const std::string& text) {
    return {text.begin(), text.end()};
}
std::string textOfUnits(const Unit* units) {
    return reinterpret_cast<const char*>(units);
}
#endif

#ifdef _WIN32
constexpr auto driverConnect = SQLDriverConnectW;
constexpr auto execDirect = SQLExecDirectW;
constexpr auto prepare = SQLPrepareW;
constexpr auto getInfo = SQLGetInfoW;
constexpr auto colAttribute = SQLColAttributeW;
constexpr auto describeCol = SQLDescribeColW;
constexpr auto getDiagRec = SQLGetDiagRecW;
#else
constexpr auto driverConnect = SQLDriverConnect;
constexpr auto execDirect = SQLExecDirect;
constexpr auto prepare = SQLPrepare;
constexpr auto getInfo = SQLGetInfo;
constexpr auto colAttribute = SQLColAttribute;
constexpr auto describeCol = SQLDescribeCol;
constexpr auto getDiagRec = SQLGetDiagRec;
#endif

}  // namespace

std::string textFromDriver(const char* data, std::size_t bytes) {
#ifdef _WIN32
    const auto* units = reinterpret_cast<const char16_t*>(data);
    return utf8Of({units, bytes / textUnit});
#else
    return {data, bytes};
#endif
}

std::string textForDriver(const std::string& text) {
#ifdef _WIN32
    const std::u16string units = utf16Of(text);
    return {reinterpret_cast<const char*>(units.data()), units.size() * textUnit};
#else
    return text;
#endif
}

SQLSMALLINT parameterType(SQLSMALLINT sqlType) {
#ifdef _WIN32
    if (sqlType == SQL_CHAR || sqlType == SQL_VARCHAR) return SQL_WVARCHAR;
    if (sqlType == SQL_LONGVARCHAR) return SQL_WLONGVARCHAR;
#endif
    return sqlType;
}

SQLRETURN connectDriver(SQLHDBC connection, const std::string& connectionString) {
    std::basic_string<Unit> text = unitsOf(connectionString);
    return driverConnect(connection, nullptr, text.data(), static_cast<SQLSMALLINT>(text.size()),
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
}

SQLRETURN executeText(SQLHSTMT statement, const std::string& sql) {
    std::basic_string<Unit> text = unitsOf(sql);
    return execDirect(statement, text.data(), static_cast<SQLINTEGER>(text.size()));
}

SQLRETURN prepareText(SQLHSTMT statement, const std::string& sql) {
    std::basic_string<Unit> text = unitsOf(sql);
    return prepare(statement, text.data(), static_cast<SQLINTEGER>(text.size()));
}

SQLRETURN executePreparedText(SQLHSTMT statement, const std::string& sql) {
    const SQLRETURN result = prepareText(statement, sql);
    return SQL_SUCCEEDED(result) ? SQLExecute(statement) : result;
}

std::string productName(SQLHDBC connection) {
    std::array<Unit, longestName> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result = getInfo(connection, SQL_DBMS_NAME, text.data(),
                                     static_cast<SQLSMALLINT>(sizeof text), &length);
    return SQL_SUCCEEDED(result) ? textOfUnits(text.data()) : std::string();
}

std::string columnText(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT field) {
    std::array<Unit, longestName> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result = colAttribute(statement, column, field, text.data(),
                                          static_cast<SQLSMALLINT>(sizeof text), &length, nullptr);
    return SQL_SUCCEEDED(result) ? textOfUnits(text.data()) : std::string();
}

SQLRETURN describeColumn(SQLHSTMT statement, SQLUSMALLINT number, DescribedColumn& column) {
    std::array<Unit, longestName> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    const SQLRETURN result =
        describeCol(statement, number, name.data(), static_cast<SQLSMALLINT>(name.size()), &length,
                    &column.type, &column.size, &digits, &nullable);
    if (SQL_SUCCEEDED(result)) column.name = textOfUnits(name.data());
    return result;
}

bool readDiagnostic(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                    DiagnosticRecord& record) {
    std::array<Unit, SQL_SQLSTATE_SIZE + 1> state{};
    std::vector<Unit> message(longestMessage);
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(getDiagRec(kind, handle, number, state.data(), &record.number,
                                  message.data(), longestMessage, &length)))
        return false;
    record.state = textOfUnits(state.data());
    record.message = textOfUnits(message.data());
    return true;
}

}  // namespace catalogador::odbc
