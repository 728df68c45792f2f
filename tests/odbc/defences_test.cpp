#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "../sql/dialects.h"
#include "database.h"

namespace catalogador {
namespace {

using odbc::Defences;
using test::errorNumberOf;
using test::errorOf;
using test::TestedConnection;
using namespace std::chrono_literals;

constexpr odbc::Defences readingAlone{true, false};
constexpr odbc::Defences engineAlone{false, true};
constexpr odbc::Defences both{true, true};

class RdoDefences : public test::RdoTest {
  protected:
    void SetUp() override {
        RdoTest::SetUp();
        if (IsSkipped()) return;
        if (GetParam().guarded) GTEST_SKIP() << "has defences of its own";
        create("a INTEGER", {"42"});
        std::filesystem::remove(canaryFile());
    }
    void TearDown() override {
        std::filesystem::remove(canaryFile());
        RdoTest::TearDown();
    }

    [[nodiscard]] std::string canaryFile() const {
        return (std::filesystem::temp_directory_path() / (table + "_canary")).string();
    }

    /// As the checks of the form build it.
    [[nodiscard]] SqlText check(const std::string& typed) const {
        return "Select a From " + table + " Where a <> 1 And 'x' = '" + SqlText::ofData(typed) +
               "'";
    }

    void attack(TestedConnection& by, const std::string& typed) const {
        try {
            by.OpenResultset(check(typed))->Close();
        } catch (const RuntimeError&) {
            // What it ends in is of no interest here.
        }
    }

    void expectUntouched(const std::string& typed) {
        const auto rows = all();
        ASSERT_EQ(rows.size(), 1U) << typed;
        EXPECT_EQ(rows[0][0], Variant(std::int64_t{42})) << typed;
        EXPECT_FALSE(std::filesystem::exists(canaryFile())) << typed;
    }

    /// Each in one session, so that one may prepare the next.
    [[nodiscard]] std::vector<std::string> attacks() const {
        const std::string steal = "Delete From " + table;
        std::vector<std::string> texts{
            "'; " + steal + " --",
            "'; " + steal + " -- ",
            "x' --\r; " + steal + " --",
            "x'/**/;/**/" + steal + "/*",
            "\\'; " + steal + " -- ",
            "\\'; " + steal + " #",
            "x' /*!99999 ' */ ; " + steal + " #",
            "x' /*M!999999 ' */ ; " + steal + " #",
            "'; Commit; " + steal + " --",
            "'; Commit; " + steal + "; Begin --",
        };
        if (dialect() == dialects::postgresql) {
            const std::vector<std::string> more{
                "'||set_config('standard_conforming_strings','0','0')--",
                "\\';" + steal + "--",
                "'||set_config('default_transaction_read_only','off',false)--",
                "'||set_config('transaction_read_only','off',false)--",
                "'; " + steal + " --",
                "x'||E'a'\n'b\\'';" + steal + " --",
                "'; Rollback; Set default_transaction_read_only = off; " + steal + " --",
                "'; Rollback; Begin Read Write; " + steal + "; Commit --",
                "'; Copy (Select 1) To Program 'touch " + canaryFile() + "' --",
                "'; Copy (Select 1) To '" + canaryFile() + "' --",
                "x' Or 1 = (Select 1 From (Values (query_to_xml('" + steal +
                    "',true,true,''))) v) --",
            };
            texts.insert(texts.end(), more.begin(), more.end());
        }
        if (dialect() == dialects::mariadb)
            texts.insert(texts.end(), {"' Union Select 1 Into Outfile '" + canaryFile() + "' -- ",
                                       "' Into Dumpfile '" + canaryFile() + "' -- ",
                                       "'; Set Session Transaction Read Write; " + steal + " -- "});
        return texts;
    }

    void play(const odbc::Defences& defences, const std::string& options = {}) {
        const auto session = connect({}, defences, options);
        for (const std::string& typed : attacks()) {
            if (defences.reading)
                EXPECT_EQ(errorNumberOf([&] { session->OpenResultset(check(typed)); }),
                          error_number::dataRefused)
                    << typed;
            else
                attack(*session, typed);
            expectUntouched(typed);
        }
        session->run("Update " + table + " Set a = 42");
    }
};
INSTANTIATE_TEST_SUITE_P(, RdoDefences, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoDefences, WithoutThemTypedTextIsRun) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "its driver takes one statement only";
    // The connection string is the one that the attack needs.
    const auto session = connect({}, odbc::Defences{false, false}, ";OPTION=67108864");
    attack(*session, "'; Delete From " + table + " -- ");
    EXPECT_TRUE(all().empty());
}

TEST_P(RdoDefences, ReadingAloneKeepsTypedTextFromBeingRun) {
    play(readingAlone);
}

TEST_P(RdoDefences, EngineAloneKeepsTypedTextFromWriting) {
    play(engineAlone);
}

TEST_P(RdoDefences, BothKeepTypedTextFromBeingRun) {
    play(both);
}

TEST_P(RdoDefences, ConnectionStringThatAllowsSeveralCommandsIsNotBelieved) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "its driver has no such option";
    const std::string options = dialect() == dialects::mariadb
                                    ? ";OPTION=67108864"
                                    : ";UseServerSidePrepare=0;UseDeclareFetch=1";
    play(engineAlone, options);
    play(both, options);
}

TEST_P(RdoDefences, PostgresqlGetsDataByTheProtocolThatTakesOneCommand) {
    if (dialect() != dialects::postgresql) GTEST_SKIP() << "of that server";
    const auto session = connect({}, both, ";UseServerSidePrepare=0");
    const auto rows = session->OpenResultset(
        "Select Count(*) From pg_prepared_statements Where Not from_sql And name <> '" +
        SqlText::ofData("x") + "'");
    EXPECT_EQ(rows->value(0), Variant(std::int64_t{1}));
}

TEST_P(RdoDefences, OpenedStatementCannotWrite) {
    if (GetParam().automation) GTEST_SKIP() << "a host's own connection";
    const auto insert = "Insert Into " + table + " Values (7) Returning a";
    for (int times = 0; times < 2; ++times) {
        EXPECT_NE(errorOf([&] { connection->OpenResultset(insert); }), "");
        EXPECT_EQ(all().size(), 1U);
        EXPECT_EQ(connection->Execute("Update " + table + " Set a = 42"),
                  dialect() == dialects::mariadb ? 0 : 1);
    }
    connection->begin();
    connection->run("Insert Into " + table + " Values (8)");
    connection->commit();
    EXPECT_EQ(all().size(), 2U);
}

TEST_P(RdoDefences, RowFoundByDataCanBeWritten) {
    const auto rows = connection->OpenResultset(check("x;y"));
    EXPECT_TRUE(rows->atEnd());
    rows->AddNew();
    rows->setValue("a", 43);
    rows->Update();
    EXPECT_EQ(all().size(), 2U);
    const auto found = connection->OpenResultset(check("x"));
    ASSERT_FALSE(found->atEnd());
    EXPECT_EQ(found->value("a"), Variant(std::int64_t{42}));
}

TEST_P(RdoDefences, HostsOwnSessionKeepsItsSettings) {
    if (dialect() == dialects::sqlite || GetParam().automation) GTEST_SKIP() << "of servers";
    const bool postgresql = dialect() == dialects::postgresql;
    const auto host = connect({}, odbc::Defences{false, false});
    host->run(postgresql ? "SET lock_timeout = 7654" : "SET SESSION lock_wait_timeout = 7654");
    host->run(postgresql ? "SET standard_conforming_strings = off"
                         : "SET SESSION sql_mode = 'PIPES_AS_CONCAT'");
    const std::string settings =
        postgresql ? "SELECT current_setting('lock_timeout') || ' ' || "
                     "current_setting('standard_conforming_strings') || ' ' || "
                     "current_setting('default_transaction_read_only')"
                   : "SELECT CONCAT(@@lock_wait_timeout, @@sql_mode, @@tx_read_only)";
    const auto before = host->query(settings);
    rdoConnection& direct = *host;
    auto& owner = dynamic_cast<odbc::OdbcConnection&>(direct);
    const auto shared = odbc::OdbcConnection::onHandle(owner.handle());
    EXPECT_EQ(errorNumberOf([&] { shared->OpenResultset(check("\\")); }),
              error_number::dataRefused);
    shared->OpenResultset(check("x"))->Close();
    shared->Execute("Update " + table + " Set a = a + 1");
    EXPECT_EQ(host->query(settings), before);
}

class RdoLimits : public RdoDefences {
  protected:
    /// Ends within a few seconds, in an error that is told once, and the connection works on.
    void expectStopped(TestedConnection& session, const SqlText& statement) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_NE(errorOf([&] { session.OpenResultset(statement); }), "") << statement.text();
        EXPECT_LT(std::chrono::steady_clock::now() - start, 20s) << statement.text();
        EXPECT_EQ(session.query("Select a From " + table).size(), 1U) << statement.text();
    }
};
INSTANTIATE_TEST_SUITE_P(, RdoLimits, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoLimits, HoldWhateverTheStatementSays) {
    sql::Timeouts timeouts;
    timeouts.statement = 1s;
    const auto session = connect(timeouts, engineAlone);
    if (dialect() == dialects::postgresql) {
        session->run("SET statement_timeout = 0");
        expectStopped(*session, "Select pg_sleep(100)");
        expectStopped(*session,
                      check("'||set_config('statement_timeout','0',false)||pg_sleep(100)--"));
        session->run("SET statement_timeout = 0");
        expectStopped(*session, "Copy (Select * From generate_series(1,1000000000000)) To Stdout");
        expectStopped(*session, " /* x */ Copy (Select 1) To Stdout");
    } else if (dialect() == dialects::mariadb) {
        session->run("SET SESSION max_statement_time = 0");
        expectStopped(*session, "Select sleep(100)");
        expectStopped(*session, check("' Or sleep(100) -- "));
        session->run("SET SESSION max_statement_time = 0");
        expectStopped(*session, "Select benchmark(100000000000, md5('a'))");
    } else {
        expectStopped(*session,
                      check("' Or (With Recursive r(x) As (Select 1 Union All Select x + 1 "
                            "From r) Select Count(*) From r) --"));
    }
}

}  // namespace
}  // namespace catalogador
