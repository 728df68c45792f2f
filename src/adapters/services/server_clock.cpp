#include "adapters/services/server_clock.h"

#include <array>

#include "adapters/odbc/odbc_connection.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

constexpr const char* sqliteTime = "Select datetime('now', 'localtime')";
constexpr const char* standardTime = "Select localtimestamp";

Date toSecond(const Variant& value) {
    std::optional<Date> date;
    if (const Date* given = value.as<Date>())
        date = *given;
    else if (const auto* text = value.as<std::string>())
        date = dateFromIso(*text);
    if (!date) throw RuntimeError(error_number::typeMismatch, "The database gave no date");
    date->nanosecond = 0;
    return *date;
}

Variant firstValue(rdoConnection& connection, const char* sql) {
    const auto rows = connection.OpenResultset(sql);
    Variant value = rows->value(0);
    rows->Close();
    return value;
}

}  // namespace

Date serverTime(rdoConnection& connection) {
    if (auto* odbc = dynamic_cast<OdbcConnection*>(&connection)) {
        const bool isSqlite = odbc->dialect() == Dialect::sqlite;
        const auto rows = odbc->query(isSqlite ? sqliteTime : standardTime);
        return toSecond(rows.empty() ? Variant() : rows.front().front());
    }
    try {
        return toSecond(firstValue(connection, standardTime));
    } catch (const RuntimeError&) {
        // What is behind the connection is not known; SQLite lacks the standard's name.
        return toSecond(firstValue(connection, sqliteTime));
    }
}

}  // namespace catalogador
