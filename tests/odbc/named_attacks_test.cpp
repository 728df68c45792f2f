// Attacks by texts that somebody types into a checked field, each with either line of defence
// alone, with both, and with none where that shows that the attack is one.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iterator>

#include "../sql/dialects.h"
#include "database.h"

namespace catalogador {
namespace {

using odbc::Defences;
using test::DatabaseKind;
using test::TestedConnection;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr odbc::Defences none{false, false};
constexpr odbc::Defences readingAlone{true, false};
constexpr odbc::Defences engineAlone{false, true};
constexpr odbc::Defences both{true, true};

constexpr auto statementLimit = 1s;
/// An attack that keeps the database at work so long goes on beyond its limit.
constexpr auto tooLong = 12s;

std::vector<DatabaseKind> kindsOf(const sql::Dialect& dialect) {
    std::vector<DatabaseKind> kinds;
    std::copy_if(
        test::databaseKinds().begin(), test::databaseKinds().end(), std::back_inserter(kinds),
        [&](const DatabaseKind& kind) { return kind.dialect == dialect && !kind.automation; });
    return kinds;
}

class Attacks : public test::RdoTest {
  protected:
    void SetUp() override {
        RdoTest::SetUp();
        if (IsSkipped()) return;
        create("a INTEGER", {"42"});
        // The servers run as another user.
        std::filesystem::permissions(std::filesystem::path(file()).parent_path(),
                                     std::filesystem::perms::all);
    }

    /// A file that no attack may make.
    [[nodiscard]] std::string file() const { return folder_.path(); }
    [[nodiscard]] std::string steal() const { return "Delete From " + table; }

    /// Whether what somebody typed, one text after the other, did any harm.
    [[nodiscard]] bool harms(const std::vector<std::string>& typed, const odbc::Defences& defences,
                             const std::string& options = {}) {
        other->run("Delete From " + table);
        other->run("Insert Into " + table + " Values (42)");
        std::filesystem::remove(file());
        const auto start = Clock::now();
        const auto session = attacked(defences, options);
        bool found = false;
        for (const std::string& text : typed) found = finds(*session, text, defences) || found;
        const bool late = Clock::now() - start > tooLong;
        const bool stolen = all() != std::vector<std::vector<Variant>>{{Variant(std::int64_t{42})}};
        return found || late || stolen || std::filesystem::exists(file());
    }

    void expectHarmless(const std::vector<std::string>& typed, const std::string& options = {}) {
        EXPECT_FALSE(harms(typed, readingAlone, options)) << "by reading alone";
        EXPECT_FALSE(harms(typed, engineAlone, options)) << "by the engine alone";
        EXPECT_FALSE(harms(typed, both, options)) << "by both";
    }

    /// The same of an attack that does harm where nothing is done against it.
    void expectHeldBack(const std::vector<std::string>& typed, const std::string& options = {}) {
        expectHarmless(typed, options);
        EXPECT_TRUE(harms(typed, none, options)) << "this is no attack";
    }

  private:
    /// An undefended session has no limits either.
    [[nodiscard]] std::unique_ptr<TestedConnection> attacked(const odbc::Defences& defences,
                                                             const std::string& options) const {
        sql::Timeouts timeouts;
        timeouts.statement = defences.reading || defences.engine ? statementLimit : 0s;
        if (!GetParam().guarded) return connect(timeouts, defences, options);
        return connectFile(timeouts,
                           defences.engine ? sqlite::Opening::guarded : sqlite::Opening::unguarded);
    }

    /// Whether a check that has to find nothing finds something.
    [[nodiscard]] bool finds(TestedConnection& session, const std::string& typed,
                             const odbc::Defences& defences) const {
        // Without a driver it is the mark of data that has a statement read.
        const bool marked = defences.reading || !GetParam().guarded;
        const SqlText sql = "Select a From " + table + " Where a <> 1 And 'x' = '" +
                            (marked ? SqlText::ofData(typed) : SqlText(typed)) + "'";
        try {
            const auto rows = session.OpenResultset(sql);
            const bool found = !rows->atEnd();
            rows->Close();
            return found;
        } catch (const RuntimeError&) {
            // What it ends in is of no interest here.
            return false;
        }
    }

    test::TemporaryFile folder_{"canary"};
};

class SqliteAttacks : public Attacks {};
INSTANTIATE_TEST_SUITE_P(, SqliteAttacks, testing::ValuesIn(kindsOf(dialects::sqlite)),
                         test::kindName);

TEST_P(SqliteAttacks, FunctionThatWritesAFile) {
    const std::vector<std::string> typed{"' Or blob_export(x'41','" + file() + "')--"};
    expectHarmless(typed);
    // The function is the driver's.
    EXPECT_EQ(harms(typed, none), !GetParam().guarded);
}

TEST_P(SqliteAttacks, FunctionInQuotesThatWritesAFile) {
    for (const std::string name : {"\"blob_export\"", "[BLOB_EXPORT]", "`Blob_Export`"})
        expectHarmless({"' Or " + name + "/**/(x'41','" + file() + "')--"});
}

TEST_P(SqliteAttacks, FunctionThatReadsAFile) {
    expectHarmless({"' Or blob_import('/etc/passwd') Is Not Null--"});
}

TEST_P(SqliteAttacks, CodeThatIsLoaded) {
    const std::string extension = CATALOGADOR_TEST_EXTENSION;
    ASSERT_TRUE(std::filesystem::exists(extension));
    setenv("CATALOGADOR_TEST_CANARY", file().c_str(), 1);
    const std::vector<std::string> typed{"' Or load_extension('" + extension + "')--"};
    expectHarmless(typed);
    EXPECT_EQ(harms(typed, none), !GetParam().guarded);
    unsetenv("CATALOGADOR_TEST_CANARY");
}

TEST_P(SqliteAttacks, QueryThatNeverEnds) {
    expectHarmless(
        {"' Or (With Recursive r(x) As (Select 1 Union All Select x + 1 From r) Select "
         "Count(*) From r) --"});
}

TEST_P(SqliteAttacks, SecondStatement) {
    expectHarmless({"'; " + steal() + " --", "'; Attach '" + file() + "' As x; --",
                    "y' /* ' */ ; " + steal() + " --"});
}

class PostgresqlAttacks : public Attacks {};
INSTANTIATE_TEST_SUITE_P(, PostgresqlAttacks, testing::ValuesIn(kindsOf(dialects::postgresql)),
                         test::kindName);

TEST_P(PostgresqlAttacks, SettingOfOneSaveThatTheNextMakesUseOf) {
    expectHeldBack(
        {"'||set_config('standard_conforming_strings','0',false)--", "\\'';" + steal() + "--"});
}

TEST_P(PostgresqlAttacks, SettingThatLetsASessionWrite) {
    expectHarmless({"'||set_config('default_transaction_read_only','off',false)--",
                    "'||set_config('transaction_read_only','off',true)--", "';" + steal() + "--",
                    "'; Commit; " + steal() + "--"});
}

TEST_P(PostgresqlAttacks, ProgramThatIsRun) {
    expectHeldBack({"'; Copy (Select 1) To Program 'touch " + file() + "' --"});
}

TEST_P(PostgresqlAttacks, FileThatIsWrittenByCopy) {
    expectHeldBack({"'; Copy (Select 1) To '" + file() + "' --"});
}

TEST_P(PostgresqlAttacks, CommentThatEndsAtACarriageReturn) {
    expectHeldBack({"y' --\r; " + steal() + " --"});
}

TEST_P(PostgresqlAttacks, EscapeTextThatGoesOnInTheNextLine) {
    expectHeldBack({"y'||E'a'\n'b\\'';" + steal() + " --"});
    expectHarmless({"y'||E'a'\n'\\'; " + steal() + " --'"});
}

TEST_P(PostgresqlAttacks, LimitThatIsSwitchedOff) {
    expectHeldBack(
        {"'||set_config('statement_timeout','0',false)--", "y' Or pg_sleep(14) Is Null --"});
}

TEST_P(PostgresqlAttacks, StatementThatOnlyWaits) {
    expectHeldBack({"y' Or pg_sleep(14) Is Null --"});
}

TEST_P(PostgresqlAttacks, CopyToTheProgramItself) {
    expectHarmless({"'; Copy (Select 1) To Stdout --",
                    "'; Copy (Select * From generate_series(1,1000000000000)) To Stdout --"});
}

TEST_P(PostgresqlAttacks, LargeObjectThatIsWrittenToAFile) {
    other->begin();
    const auto object = other->query("Select lo_from_bytea(0, 'A')").at(0).at(0);
    other->commit();
    const std::string number = std::to_string(*object.as<std::int64_t>());
    expectHeldBack({"y' Or lo_export(" + number + ", '" + file() + "') = 1 --"});
    other->begin();
    other->query("Select lo_unlink(" + number + ")");
    other->commit();
}

TEST_P(PostgresqlAttacks, FileThatIsRead) {
    expectHeldBack({"y' Or length(pg_read_file('PG_VERSION')) > 0 --"});
    expectHeldBack({"y' Or length(pg_read_binary_file('PG_VERSION')) > 0 --"});
    expectHeldBack({"y' Or (pg_stat_file('PG_VERSION')).size > 0 --"});
}

TEST_P(PostgresqlAttacks, FolderThatIsListed) {
    expectHeldBack({"y' Or Exists (Select pg_ls_dir('.')) --"});
    expectHeldBack({"y' Or Exists (Select * From pg_ls_waldir()) --"});
}

TEST_P(PostgresqlAttacks, StatementWithinAText) {
    expectHarmless({"y' Or query_to_xml('" + steal() + "',true,true,'') Is Not Null --",
                    "y' Or query_to_xml('Copy (Select 1) To Program ''touch " + file() +
                        "''',true,true,'') Is Not Null --"});
}

TEST_P(PostgresqlAttacks, RoleThatComesBack) {
    const std::string read = "query_to_xml('Select pg_read_file(''PG_VERSION'')',true,true,'')";
    const std::string back = "set_config('role','none',true) = 'none'";
    expectHeldBack({"y' Or (" + back + " And length(" + read + "::text) > 0) --"});
    expectHarmless({"y' Or length(U&\"\\0070g_read_file\"('PG_VERSION')) > 0 --"});
}

class MariadbAttacks : public Attacks {};
INSTANTIATE_TEST_SUITE_P(, MariadbAttacks, testing::ValuesIn(kindsOf(dialects::mariadb)),
                         test::kindName);

const std::string severalCommands = ";OPTION=67108864";

TEST_P(MariadbAttacks, SecondStatementWhereTheConnectionStringAllowsIt) {
    expectHeldBack({"'; " + steal() + " -- "}, severalCommands);
}

TEST_P(MariadbAttacks, CommentForALaterVersion) {
    expectHeldBack({"y' /*!99999 ' */ ; " + steal() + " #"}, severalCommands);
    expectHarmless({"y' /*M!999999 ' */ ; " + steal() + " #"}, severalCommands);
}

TEST_P(MariadbAttacks, BackslashBeforeAQuote) {
    expectHarmless({"\\'; " + steal() + " -- ", "\\\\'; " + steal() + " #"}, severalCommands);
}

TEST_P(MariadbAttacks, FileThatIsWritten) {
    expectHeldBack({"' Union Select 1 Into Outfile '" + file() + "' -- "});
    expectHarmless({"' Union Select 1 Into Dumpfile '" + file() + "' -- "});
}

TEST_P(MariadbAttacks, StatementThatOnlyWaits) {
    expectHeldBack({"y' Or sleep(14) -- "});
    expectHarmless({"y' Or benchmark(100000000000, md5('a')) -- "});
}

TEST_P(MariadbAttacks, FileThatIsRead) {
    expectHeldBack({"y' Or load_file('/etc/passwd') Is Not Null -- "});
    expectHarmless({"y' Or `Load_File`('/etc/passwd') Is Not Null -- "});
}

}  // namespace
}  // namespace catalogador
