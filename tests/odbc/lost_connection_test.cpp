#include <chrono>
#include <filesystem>
#include <thread>

#include "../sql/dialects.h"
#include "database.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

constexpr int losses = 20;
/// What else may open a file meanwhile: the driver's own, of the last connection.
constexpr int tolerance = 3;

class LostConnections : public test::RdoTest {
  protected:
    void SetUp() override {
        if (GetParam().dialect == dialects::sqlite) GTEST_SKIP() << "a file has no connections";
        test::RdoTest::SetUp();
    }
    static int openFiles() {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return static_cast<int>(std::distance(begin(files), end(files)));
    }
    std::int32_t idOf(test::TestedConnection& whose) {
        const char* sql = dialect() == dialects::postgresql ? "Select pg_backend_pid()"
                                                            : "Select connection_id()";
        return toLong(whose.query(sql).at(0).at(0), Regional{});
    }
    void endFromOutside(std::int32_t id) {
        if (dialect() == dialects::postgresql)
            other->query("Select pg_terminate_backend(" + decimalText(id) + ")");
        else
            other->run("Kill " + decimalText(id));
    }
    /// Connections that the server has now.
    std::int32_t connections() {
        const char* sql = dialect() == dialects::postgresql
                              ? "Select Count(*) From pg_stat_activity Where datname = "
                                "current_database()"
                              : "Select Count(*) From information_schema.processlist";
        return toLong(other->query(sql).at(0).at(0), Regional{});
    }
};
INSTANTIATE_TEST_SUITE_P(, LostConnections, testing::ValuesIn(test::databaseKinds()),
                         test::kindName);

TEST_P(LostConnections, AreClosedWhenAnotherIsMade) {
    create("Code INTEGER", {"1"});
    (void)idOf(*connection);
    const int filesBefore = openFiles();
    const int before = connections();
    for (int i = 0; i < losses; ++i) {
        endFromOutside(idOf(*connection));
        EXPECT_EQ(connection->query(select()).size(), 1U) << "the query is asked once more";
    }
    EXPECT_LE(openFiles(), filesBefore + tolerance);
    EXPECT_LE(connections(), before + tolerance);
}

TEST_P(LostConnections, AreClosedAlsoWhenTheyWereLostInATransaction) {
    create("Code INTEGER", {"1"});
    (void)idOf(*connection);
    const int filesBefore = openFiles();
    const int before = connections();
    for (int i = 0; i < losses; ++i) {
        connection->begin();
        endFromOutside(idOf(*connection));
        EXPECT_ANY_THROW(connection->run("UPDATE " + table + " SET Code = 2"));
        EXPECT_ANY_THROW(connection->commit());
    }
    EXPECT_EQ(connection->query(select()).at(0).at(0), Variant(1));
    EXPECT_LE(openFiles(), filesBefore + tolerance);
    EXPECT_LE(connections(), before + tolerance);
}

TEST_P(LostConnections, AreThoseToAServerThatTakesNoMoreWrites) {
    create("Code INTEGER, State VARCHAR(10)");
    std::vector<std::string> states{"1047", "1053", "1290", "1792", "1836"};
    if (dialect() == dialects::postgresql) {
        states = {"57P01", "57P02", "57P03", "25006"};
        other->run("CREATE OR REPLACE FUNCTION " + table +
                   "_refuse() RETURNS TRIGGER AS $$ BEGIN RAISE EXCEPTION 'not here' USING ERRCODE "
                   "= NEW.State; END $$ LANGUAGE plpgsql");
        other->run("CREATE TRIGGER refuse BEFORE INSERT ON " + table +
                   " FOR EACH ROW EXECUTE FUNCTION " + table + "_refuse()");
    }
    for (const std::string& state : states) {
        if (dialect() == dialects::mariadb)
            other->run("CREATE OR REPLACE TRIGGER " + table + "_refuse BEFORE INSERT ON " + table +
                       " FOR EACH ROW SIGNAL SQLSTATE 'HY000' SET MYSQL_ERRNO = " + state);
        const std::int32_t before = idOf(*connection);
        const auto rows = connection->OpenResultset(select());
        rows->AddNew();
        rows->setValue("State", state);
        EXPECT_ANY_THROW(rows->Update()) << state;
        EXPECT_NE(idOf(*connection), before) << state;
    }
    connection->run("DROP TABLE " + table);
    if (dialect() == dialects::postgresql) other->run("DROP FUNCTION " + table + "_refuse");
}

TEST_P(LostConnections, LiveAsLongAsRowsOfTheirsAreRead) {
    create("Code INTEGER", {"1", "2", "3"});
    const auto rows = connection->OpenResultset(select("Order By Code"));
    endFromOutside(idOf(*connection));
    EXPECT_EQ(connection->query(select()).size(), 3U);
    rows->MoveNext();
    EXPECT_EQ(rows->value("Code"), Variant(2));
    rows->Close();
}

TEST_P(LostConnections, AreNotLeftWaitingOnTheServer) {
    if (dialect() != dialects::mariadb) GTEST_SKIP() << "only this driver gives up by itself";
    using namespace std::chrono_literals;
    const auto impatient = connect({15'000ms, 0ms, 5'000ms}, {}, ";READ_TIMEOUT=1");
    const int before = connections();
    for (int i = 0; i < 5; ++i) EXPECT_ANY_THROW(impatient->run("DO SLEEP(2)"));
    impatient->query("Select 1");
    std::this_thread::sleep_for(2500ms);
    EXPECT_LE(connections(), before);
}

}  // namespace
}  // namespace catalogador
