#include "adapters/odbc/connection_string.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

TEST(WithoutPasswords, HidesEveryPassword) {
    EXPECT_EQ(odbc::withoutPasswords("no access for ana (secret)", "UID=ana;PWD=secret"),
              "no access for ana (***)");
    EXPECT_EQ(odbc::withoutPasswords("bad: se;c}ret", "password = {se;c}}ret};UID=ana"),
              "bad: ***");
    EXPECT_EQ(odbc::withoutPasswords("bad: se;c}}ret", "PWD={se;c}}ret}"), "bad: ***");
}

TEST(WithoutPasswords, LeavesTextWithoutPassword) {
    EXPECT_EQ(odbc::withoutPasswords("ana is unknown", "UID=ana;PWD="), "ana is unknown");
    EXPECT_EQ(odbc::withoutPasswords("ana is unknown", "nonsense"), "ana is unknown");
    EXPECT_EQ(odbc::withoutPasswords("ana is unknown", "PWD={open"), "ana is unknown");
}

TEST(SqliteFileOf, KnowsTheStringsThatNeedNoDriver) {
    for (const char* file : {"a.db", "C:\\datos\\mañana.db", "/a b/c#d%20?.db", "a;b.db", " a.db ",
                             "{a.db", "file:a.db"})
        EXPECT_EQ(odbc::sqliteFileOf(odbc::connectionStringOfSqliteFile(file)), file);
    EXPECT_EQ(odbc::sqliteFileOf("database=a.db"), "a.db");
    EXPECT_EQ(odbc::sqliteFileOf("Driver=SQLite3 ODBC Driver;Database={a}}b.db};Timeout=5"),
              "a}b.db");
    for (const char* other : {"", "DSN=x;Database=a.db", "Driver={MariaDB Unicode};Database=a",
                              "Server=localhost;Database=a", "Driver={SQLite3}", "a.db"})
        EXPECT_EQ(odbc::sqliteFileOf(other), std::nullopt) << other;
}

TEST(ConnectionStringKeys, AreFoundInAnySpelling) {
    EXPECT_TRUE(odbc::hasKey("DRIVER={SQLite3};Database=x;timeout = 300", "Timeout"));
    EXPECT_FALSE(odbc::hasKey("DRIVER={SQLite3};Database={a;Timeout=1}", "Timeout"));
    EXPECT_FALSE(odbc::hasKey("", "Timeout"));
}

class WithTimeouts : public testing::Test {
  protected:
    [[nodiscard]] std::string added(const std::string& connectionString) const {
        const std::string all = odbc::withTimeouts(connectionString, timeouts_);
        EXPECT_EQ(all.substr(0, connectionString.size()), connectionString);
        return all.substr(connectionString.size());
    }

    sql::Timeouts timeouts_{std::chrono::milliseconds(2500), std::chrono::seconds(60),
                            std::chrono::milliseconds(700)};
};

TEST(EachHost, IsAConnectionStringOfItsOwn) {
    using Strings = std::vector<std::string>;
    EXPECT_EQ(odbc::eachHost("Driver={MariaDB Unicode};Server=a, b;Port=1,2;PWD={x;y}"),
              (Strings{"DRIVER={MariaDB Unicode};PWD={x;y};SERVER=a;PORT=1",
                       "DRIVER={MariaDB Unicode};PWD={x;y};SERVER=b;PORT=2"}));
    EXPECT_EQ(odbc::eachHost("Driver=MariaDB;Server=a,b;Port=1"),
              (Strings{"DRIVER=MariaDB;SERVER=a;PORT=1", "DRIVER=MariaDB;SERVER=b;PORT=1"}));
    EXPECT_EQ(odbc::eachHost("Driver={PostgreSQL Unicode};Server=a,b;Port=15432,15433;pqopt={x=y}"),
              (Strings{"DRIVER={PostgreSQL Unicode};PQOPT={x=y};SERVER=a;PORT=15432",
                       "DRIVER={PostgreSQL Unicode};PQOPT={x=y};SERVER=b;PORT=15433"}));
    for (const char* alone :
         {"Driver=MariaDB;Server=a;Port=1", "Driver={Other};Server=a,b;Port=1,2", "DSN=a,b", ""})
        EXPECT_EQ(odbc::eachHost(alone), Strings{alone});
}

TEST_F(WithTimeouts, TellsEachDriverInItsOwnWords) {
    EXPECT_EQ(added("Driver={SQLite3};Database=x"), ";Timeout=700");
    EXPECT_EQ(added("driver=MariaDB Unicode"), ";CONN_TIMEOUT=3;READ_TIMEOUT=65;WRITE_TIMEOUT=65");
    EXPECT_EQ(added("Driver={PostgreSQL Unicode}"), ";pqopt={tcp_user_timeout=65000}");
    EXPECT_EQ(added("Driver={Other};Database=SQLite"), "");
    EXPECT_EQ(added("DSN=MariaDB"), "");
}

TEST_F(WithTimeouts, LeavesWhatTheStringSaysItself) {
    EXPECT_EQ(added("Driver={SQLite3};timeout=3"), "");
    EXPECT_EQ(added("Driver={MariaDB};conn_timeout=3;Read_Timeout=1"), ";WRITE_TIMEOUT=65");
    EXPECT_EQ(added("Driver={PostgreSQL Unicode};pqopt={keepalives=0}"), "");
}

TEST_F(WithTimeouts, WaitsWithoutEndForZero) {
    timeouts_ = {std::chrono::seconds(0), std::chrono::seconds(0), std::chrono::seconds(0)};
    EXPECT_EQ(added("Driver={SQLite3}"), ";Timeout=604800000");
    EXPECT_EQ(added("Driver={MariaDB}"), ";CONN_TIMEOUT=604800");
    EXPECT_EQ(added("Driver={PostgreSQL}"), "");
}

}  // namespace
}  // namespace catalogador
