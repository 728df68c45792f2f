#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <set>

#include "runtime/error.h"
#include "service_database.h"

namespace catalogador::services {
namespace {

class ProximoCodigo : public test::ServiceDatabase {
  protected:
    ProximoCodigo() {
        connection_->session()->run(
            "INSERT INTO genNumeradores VALUES ('Países', 33), ('Full', 2147483646), "
            "('Empty', NULL)");
    }
    std::int32_t draw(const std::string& name) {
        return utilities_.ProximoCodigo(*connection_, name);
    }
    std::int32_t drawForeign(const std::string& name) {
        test::ForeignConnection foreign(*connection_);
        return utilities_.ProximoCodigo(foreign, name);
    }
    Variant stored(const std::string& name) {
        return connection_->session()
            ->query("SELECT NumUltimo FROM genNumeradores WHERE NumNombre = ?", {name})
            .at(0)
            .at(0);
    }
};

TEST_F(ProximoCodigo, GivesOneMoreEachTime) {
    EXPECT_EQ(draw("Países"), 34);
    EXPECT_EQ(draw("Países"), 35);
    EXPECT_EQ(drawForeign("Países"), 36);
    EXPECT_EQ(stored("Países"), Variant(36));
}

TEST_F(ProximoCodigo, IsMinusOneForUnknownNamesHoweverHostile) {
    for (const std::string& name :
         {std::string(), std::string("países"), std::string("x' OR '1'='1"), std::string("%"),
          std::string("'; Delete From genNumeradores; --"), std::string("\\'"),
          std::string("Países' --"), std::string(100000, '\'')}) {
        EXPECT_EQ(draw(name), -1) << name.substr(0, 40);
        EXPECT_EQ(drawForeign(name), -1) << name.substr(0, 40);
        EXPECT_EQ(currentError().cause, ErrorCause::sequenceMissing);
    }
    EXPECT_EQ(stored("Países"), Variant(33));
}

TEST_F(ProximoCodigo, IsMinusOneWhenTheSequenceIsUsedUp) {
    EXPECT_EQ(draw("Full"), 2147483647);
    EXPECT_EQ(draw("Full"), -1);
    EXPECT_EQ(drawForeign("Full"), -1);
    EXPECT_EQ(stored("Full"), Variant(2147483647));
}

TEST_F(ProximoCodigo, IsMinusOneForASequenceWithoutNumber) {
    EXPECT_EQ(draw("Empty"), -1);
    EXPECT_EQ(drawForeign("Empty"), -1);
}

TEST_F(ProximoCodigo, LeavesADatabaseErrorInTheCurrentError) {
    currentError().clear();
    connection_->session()->run("DROP TABLE genNumeradores");
    EXPECT_EQ(draw("Países"), -1);
    EXPECT_EQ(currentError().number, error_number::statementFailed);
    EXPECT_NE(currentError().description.find("genNumeradores"), std::string::npos);
    currentError().clear();
    EXPECT_EQ(drawForeign("Países"), -1);
    EXPECT_NE(currentError().number, 0);
    connection_->session()->run("CREATE TABLE t (a INTEGER)");
}

TEST_F(ProximoCodigo, DrawsNothingWhenTheNameStandsTwice) {
    connection_->session()->run("DROP TABLE genNumeradores");
    connection_->session()->run(
        "CREATE TABLE genNumeradores (NumNombre VARCHAR(100), NumUltimo INTEGER)");
    connection_->session()->run("INSERT INTO genNumeradores VALUES ('a', 1), ('a', 5)");
    EXPECT_EQ(draw("a"), -1);
    EXPECT_EQ(connection_->session()
                  ->query("SELECT * FROM genNumeradores WHERE NumUltimo IN (1, 5)")
                  .size(),
              2U);
}

TEST_F(ProximoCodigo, GivesEveryProcessItsOwnCodes) {
    constexpr int processes = 4;
    constexpr int draws = 40;
    connection_.reset();
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child > 0) {
            children.push_back(child);
            continue;
        }
        const auto own = connect();
        test::ForeignConnection foreign(*own);
        // One of the processes has only what every connection has.
        rdoConnection& used = process == 0 ? static_cast<rdoConnection&>(foreign) : *own;
        std::ofstream codes(folder_.path() / std::to_string(process));
        for (int i = 0; i < draws; ++i) codes << utilities_.ProximoCodigo(used, "Países") << '\n';
        codes.close();
        _exit(0);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    std::set<int> all;
    for (int process = 0; process < processes; ++process) {
        std::ifstream codes(folder_.path() / std::to_string(process));
        for (int code = 0; codes >> code;) all.insert(code);
    }
    EXPECT_EQ(all.size(), static_cast<std::size_t>(processes * draws));
    EXPECT_EQ(*all.begin(), 34);
    EXPECT_EQ(*all.rbegin(), 33 + processes * draws);
}

}  // namespace
}  // namespace catalogador::services
