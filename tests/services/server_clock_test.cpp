#include "adapters/services/server_clock.h"

#include <ctime>

#include "runtime/error.h"
#include "service_database.h"

namespace catalogador::services {
namespace {

std::time_t secondsOf(const Date& date) {
    std::tm fields{};
    fields.tm_year = date.year - 1900;
    fields.tm_mon = date.month - 1;
    fields.tm_mday = date.day;
    fields.tm_hour = date.hour;
    fields.tm_min = date.minute;
    fields.tm_sec = date.second;
    fields.tm_isdst = -1;
    return std::mktime(&fields);
}

using FechaServidor = test::ServiceDatabase;

TEST_F(FechaServidor, IsTheLocalTime) {
    for (const char* zone : {"UTC", "XYZ+03:30", "XYZ-11"}) {
        const test::EnvironmentChange change("TZ", zone);
        tzset();
        test::ForeignConnection foreign(*connection_);
        const std::time_t before = std::time(nullptr);
        const Date own = utilities_.FechaServidor(*connection_);
        const Date other = utilities_.FechaServidor(foreign);
        // The coarse clock of the system may lag behind the one of the database.
        const std::time_t after = std::time(nullptr);
        EXPECT_GE(secondsOf(own), before) << zone;
        EXPECT_LE(secondsOf(own), after + 1) << zone;
        EXPECT_GE(secondsOf(other), before) << zone;
        EXPECT_LE(secondsOf(other), after + 1) << zone;
    }
    tzset();
}

TEST_F(FechaServidor, GoesOnBetweenTwoQuestions) {
    Date last = utilities_.FechaServidor(*connection_);
    for (int i = 0; i < 100; ++i) {
        // What a save does at the least between reading a record and stamping it.
        connection_->session()->query("SELECT 1");
        const Date next = utilities_.FechaServidor(*connection_);
        EXPECT_GT(next, last);
        last = next;
    }
}

}  // namespace
}  // namespace catalogador::services
