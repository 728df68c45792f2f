#include "adapters/services/server_clock.h"

#include <chrono>
#include <ctime>

#include "adapters/system/desk.h"
#include "platform/rdo.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador::services {

namespace {

constexpr const char* standardTime = "Select localtimestamp";
constexpr const char* sqliteTime = "Select strftime('%Y-%m-%d %H:%M:%f', 'now', 'localtime')";

constexpr std::int32_t nanosecondsOfMicrosecond = 1000;

Date dateOf(const Variant& value) {
    if (const Date* date = value.as<Date>()) return *date;
    if (const auto* text = value.as<std::string>())
        if (const auto date = dateFromIso(*text)) return *date;
    throw RuntimeError(error_number::typeMismatch, "The database gave no date");
}

Date firstDate(const std::vector<std::vector<Variant>>& rows) {
    return dateOf(rows.empty() ? Variant() : rows.front().front());
}

Date firstDate(rdoConnection& connection, const char* sql) {
    const auto rows = connection.OpenResultset(sql);
    const Variant value = rows->value(0);
    rows->Close();
    return dateOf(value);
}

/// What SQLite itself would read, but for the digits that it leaves out.
Date timeOfThisMachine() {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto second = floor<seconds>(now);
    const std::time_t time = system_clock::to_time_t(second);
    const std::tm local = system::localTime(time);
    const auto fraction = duration_cast<microseconds>(now - second).count();
    return {local.tm_year + 1900,
            local.tm_mon + 1,
            local.tm_mday,
            local.tm_hour,
            local.tm_min,
            local.tm_sec,
            static_cast<std::int32_t>(fraction) * nanosecondsOfMicrosecond};
}

}  // namespace

Date serverTime(rdoConnection& connection) {
    if (rdoSession* session = connection.session()) {
        const std::string clock(session->dialect().clock());
        return clock.empty() ? timeOfThisMachine() : firstDate(session->query(clock));
    }
    try {
        return firstDate(connection, standardTime);
    } catch (const RuntimeError&) {
        // What is behind the connection is not known; SQLite lacks the standard's name.
        return firstDate(connection, sqliteTime);
    }
}

}  // namespace catalogador::services
