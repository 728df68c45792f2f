#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <set>

#include "../sql/dialects.h"
#include "adapters/services/access.h"
#include "adapters/services/utilities.h"
#include "database.h"

namespace catalogador::services {
namespace {

/// The services' tables have fixed names, so that tests of one server must not run side by side.
class ServicesOn : public test::RdoTest {
  protected:
    void SetUp() override {
        RdoTest::SetUp();
        if (!connection) return;
        dropTables();
        connection->run(
            "CREATE TABLE genNumeradores (NumNombre VARCHAR(100) PRIMARY KEY, NumUltimo INTEGER)");
        connection->run("CREATE TABLE accUsuarios (UsuID INTEGER, UsuNombre VARCHAR(100))");
        connection->run(
            "CREATE TABLE accPermisos (PerUsuID INTEGER, PerOpcion VARCHAR(100), PerEmpresa "
            "SMALLINT, PerDerechos VARCHAR(100))");
    }

    void TearDown() override {
        if (connection) dropTables();
        RdoTest::TearDown();
    }

    /// Does the work in so many processes at once, each with a connection of its own. Those of this
    /// process are closed meanwhile: their threads would not live on in the others, but what they
    /// hold locked would.
    void inProcesses(int count, const std::function<void(test::TestedConnection&)>& work) {
        connection.reset();
        other.reset();
        for (int process = 0; process < count; ++process) {
            if (fork() != 0) continue;
            work(*connect());
            _exit(0);
        }
        for (int process = 0; process < count; ++process) {
            int status = -1;
            wait(&status);
            EXPECT_EQ(status, 0);
        }
        connection = connect();
        other = connect();
    }

    Utilities utilities{Settings("", {}), Regional{}, "", nullptr};

  private:
    void dropTables() {
        for (const char* name : {"genNumeradores", "accUsuarios", "accPermisos"})
            connection->run(std::string("DROP TABLE IF EXISTS ") + name);
    }
};
INSTANTIATE_TEST_SUITE_P(, ServicesOn, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(ServicesOn, GivesEveryProcessItsOwnCodes) {
    constexpr int processes = 3;
    constexpr int draws = 30;
    connection->run("INSERT INTO genNumeradores VALUES ('Países', 33)");
    create("Code INTEGER");
    inProcesses(processes, [&](test::TestedConnection& own) {
        for (int i = 0; i < draws; ++i)
            own.run("INSERT INTO " + table + " VALUES (?)",
                    {utilities.ProximoCodigo(own, "Países")});
    });
    std::set<std::int64_t> codes;
    for (const auto& row : all()) codes.insert(*row[0].as<std::int64_t>());
    EXPECT_EQ(codes.size(), static_cast<std::size_t>(processes * draws));
    EXPECT_EQ(*codes.begin(), 34);
    EXPECT_EQ(*codes.rbegin(), 33 + processes * draws);
}

TEST_P(ServicesOn, GivesNoCodeForUnknownNamesAndUsedUpSequences) {
    connection->run("INSERT INTO genNumeradores VALUES ('Full', 2147483647), ('Países', 33)");
    for (const char* name :
         {"Full", "países", "Paises", "Países ", "", "x' OR '1'='1", "\\' OR 1=1 -- "})
        EXPECT_EQ(utilities.ProximoCodigo(*connection, name), -1) << name;
    connection->run("DROP TABLE genNumeradores");
    EXPECT_EQ(utilities.ProximoCodigo(*connection, "Full"), -1);
    EXPECT_EQ(currentError().number, error_number::statementFailed);
    EXPECT_EQ(connection->run("INSERT INTO accUsuarios VALUES (1, 'x')"), 1)
        << "the connection goes on after the error";
    EXPECT_EQ(other->query("SELECT * FROM accUsuarios").size(), 1U);
}

TEST_P(ServicesOn, TellsWhyThereIsNoCode) {
    connection->run("INSERT INTO genNumeradores VALUES ('Full', 2147483647), ('Busy', 1)");
    const auto cause = [&](const char* name, rdoConnection& whose) {
        EXPECT_EQ(utilities.ProximoCodigo(whose, name), -1);
        EXPECT_NE(currentError().number, 0);
        EXPECT_NE(currentError().description.find(name), std::string::npos)
            << currentError().description;
        return currentError().cause;
    };
    EXPECT_EQ(cause("Full", *connection), ErrorCause::sequenceUsedUp);
    EXPECT_EQ(cause("None", *connection), ErrorCause::sequenceMissing);
    const auto impatient = connect(
        {std::chrono::seconds(5), std::chrono::seconds(10), std::chrono::milliseconds(200)});
    other->begin();
    other->run("UPDATE genNumeradores SET NumUltimo = 2 WHERE NumNombre = 'Busy'");
    EXPECT_EQ(utilities.ProximoCodigo(*impatient, "Busy"), -1);
    EXPECT_EQ(currentError().cause, ErrorCause::locked) << currentError().description;
    other->rollback();
    EXPECT_EQ(utilities.ProximoCodigo(*impatient, "Busy"), 2);
    EXPECT_EQ(currentError().number, 0);
}

TEST_P(ServicesOn, DrawsWhereEveryTransactionIsSerializable) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "its transactions keep other users out";
    constexpr int users = 4;
    constexpr int draws = 25;
    connection->run("INSERT INTO genNumeradores VALUES ('Países', 0)");
    create("Code INTEGER");
    inProcesses(users, [&](test::TestedConnection& own) {
        own.run(dialect() == dialects::postgresql
                    ? "SET SESSION CHARACTERISTICS AS TRANSACTION ISOLATION LEVEL SERIALIZABLE"
                    : "SET SESSION TRANSACTION ISOLATION LEVEL SERIALIZABLE");
        for (int i = 0; i < draws; ++i)
            own.run("INSERT INTO " + table + " VALUES (?)",
                    {utilities.ProximoCodigo(own, "Países")});
    });
    std::set<std::int64_t> codes;
    for (const auto& row : all()) codes.insert(*row[0].as<std::int64_t>());
    EXPECT_EQ(codes.size(), static_cast<std::size_t>(users * draws));
    EXPECT_EQ(*codes.begin(), 1) << "nobody was refused";
}

TEST_P(ServicesOn, GivesTheLocalTimeOfTheServer) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const Date date = utilities.FechaServidor(*connection);
    EXPECT_NEAR(date.year, local.tm_year + 1900, 1);
    EXPECT_NEAR(date.hour * 60 + date.minute, local.tm_hour * 60 + local.tm_min, 1);
}

TEST_P(ServicesOn, GivesALaterTimeAtEveryQuestionAlsoInATransaction) {
    create("Stamp " + types().timestamp);
    connection->begin();
    Date last = utilities.FechaServidor(*connection);
    for (int i = 0; i < 20; ++i) {
        connection->query("SELECT COUNT(*) FROM accUsuarios");
        const Date next = utilities.FechaServidor(*connection);
        EXPECT_GT(next, last);
        last = next;
    }
    connection->commit();
}

TEST_P(ServicesOn, KeepsTheWholeStampInTheColumnOfTheSchema) {
    create("Stamp " + std::string(dialect() == dialects::mariadb ? "DATETIME(6)" : "TIMESTAMP"));
    auto rows = connection->OpenResultset(select());
    Date stamp = utilities.FechaServidor(*connection);
    stamp.nanosecond = 123'456'000;
    rows->AddNew();
    rows->setValue("Stamp", stamp);
    rows->Update();
    EXPECT_EQ(all().at(0).at(0), Variant(stamp));
}

TEST_P(ServicesOn, GivesStampsThatAColumnOfWholeSecondsTakesToo) {
    create("Stamp " + std::string(dialect() == dialects::postgresql ? "TIMESTAMP(0)" : "DATETIME"));
    auto rows = connection->OpenResultset(select());
    rows->AddNew();
    Date stamp = utilities.FechaServidor(*connection);
    stamp.nanosecond = 123'456'000;
    rows->setValue("Stamp", stamp);
    rows->Update();
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(ServicesOn, KnowsAUserByTheExactName) {
    connection->run("INSERT INTO accUsuarios VALUES (7, 'ana')");
    connection->run("INSERT INTO accUsuarios VALUES (8, 'Ana')");
    connection->run("INSERT INTO accPermisos VALUES (7, 'Países', 1, 'ABM')");
    connection->run("INSERT INTO accPermisos VALUES (8, 'Países', 1, 'C')");
    const auto rightsOf = [this](const char* user, const char* option) {
        return TableAccessLibrary(user).create()->PermisosOpcion(*connection, "", option, 1);
    };
    EXPECT_EQ(rightsOf("ana", "Países"), "ABM");
    EXPECT_EQ(rightsOf("Ana", "Países"), "C");
    for (const char* user : {"ANA", "aná", "ana ", " ana", "ana\t", "anａ", "a\u0301na"}) {
        EXPECT_EQ(rightsOf(user, "Países"), "") << user;
        std::int32_t id = 0;
        TableAccessLibrary(user).create()->UsuarioActual(*connection, "", id);
        EXPECT_EQ(id, -1) << user;
    }
    for (const char* option : {"PAÍSES", "Paises", "Países "})
        EXPECT_EQ(rightsOf("ana", option), "") << option;
}

TEST_P(ServicesOn, GivesRightsByParametersOnly) {
    connection->run("INSERT INTO accUsuarios VALUES (7, 'ana')");
    connection->run("INSERT INTO accPermisos VALUES (7, 'Países', 1, 'ABM')");
    const auto access = TableAccessLibrary("ana").create();
    EXPECT_EQ(access->PermisosOpcion(*connection, "", "Países", 1), "ABM");
    EXPECT_EQ(access->PermisosOpcion(*connection, "", "Países", 2), "");
    EXPECT_EQ(access->PermisosOpcion(*connection, "", "\\' OR 1=1 -- ", 1), "");
    EXPECT_EQ(access->PermisosOpcion(*connection, "", "' OR '1'='1", 1), "");
    std::int32_t user = 0;
    access->UsuarioActual(*connection, "", user);
    EXPECT_EQ(user, 7);
    TableAccessLibrary("\\' OR 1=1 -- ").create()->UsuarioActual(*connection, "", user);
    EXPECT_EQ(user, -1);
}

}  // namespace
}  // namespace catalogador::services
