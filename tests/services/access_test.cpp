#include "adapters/services/access.h"

#include "runtime/error.h"
#include "service_database.h"

namespace catalogador::services {
namespace {

class Access : public test::ServiceDatabase {
  protected:
    Access() {
        connection_->session()->run("INSERT INTO accUsuarios VALUES (7, 'ana'), (8, 'o''brien')");
        connection_->session()->run(
            "INSERT INTO accPermisos VALUES (7, 'Países', 1, 'AB'), (7, 'Países', 1, 'M'), "
            "(7, 'Países', 2, 'X'), (8, 'Países', 1, 'Z'), (7, 'None', 1, NULL), "
            "(-1, 'Países', 1, 'ALL')");
    }

    std::string rights(const std::string& user, const std::string& option, int company) {
        test::ForeignConnection foreign(*connection_);
        const auto access = TableAccessLibrary(user).create();
        const auto number = static_cast<std::int16_t>(company);
        std::string own = access->PermisosOpcion(*connection_, "VEM04", option, number);
        EXPECT_EQ(access->PermisosOpcion(foreign, "", option, number), own);
        return own;
    }

    std::int32_t user(const std::string& name) {
        test::ForeignConnection foreign(*connection_);
        const auto access = TableAccessLibrary(name).create();
        std::int32_t own = 0;
        std::int32_t other = 0;
        access->UsuarioActual(*connection_, "VEM04", own);
        access->UsuarioActual(foreign, "VEM04", other);
        EXPECT_EQ(own, other);
        return own;
    }
};

TEST_F(Access, GivesRightsOfTheUserForOptionAndCompany) {
    EXPECT_EQ(rights("ana", "Países", 1), "ABM");
    EXPECT_EQ(rights("ana", "Países", 2), "X");
    EXPECT_EQ(rights("ana", "Países", 3), "");
    EXPECT_EQ(rights("ana", "Otros", 1), "");
    EXPECT_EQ(rights("ana", "None", 1), "");
    EXPECT_EQ(rights("o'brien", "Países", 1), "Z");
}

TEST_F(Access, GivesUnknownPersonNoRightsAndNoId) {
    EXPECT_EQ(user("ana"), 7);
    EXPECT_EQ(user("o'brien"), 8);
    EXPECT_EQ(user("nobody"), -1);
    EXPECT_EQ(user(""), -1);
    EXPECT_EQ(rights("nobody", "Países", 1), "");
}

TEST_F(Access, IsNotTalkedOverByHostileTexts) {
    for (const char* text : {"' OR '1'='1", "x' OR 1=1 --", "'; DROP TABLE accPermisos; --",
                             "\\' OR 1=1 --", "Países' --", "ana'--", "%", "?"}) {
        EXPECT_EQ(rights("ana", text, 1), "") << text;
        EXPECT_EQ(rights(text, "Países", 1), "") << text;
        EXPECT_EQ(user(text), -1) << text;
    }
    EXPECT_EQ(rights("ana", "Países", 1), "ABM");
}

TEST_F(Access, RaisesWhenTheTablesAreMissing) {
    connection_->session()->run("DROP TABLE accUsuarios");
    const auto access = TableAccessLibrary("ana").create();
    std::int32_t id = 0;
    EXPECT_THROW(access->UsuarioActual(*connection_, "", id), RuntimeError);
    EXPECT_THROW(access->PermisosOpcion(*connection_, "", "Países", 1), RuntimeError);
}

TEST_F(Access, DoesNotShowItsStatementsToTheListener) {
    struct Counter : StatementListener {
        void opened(const std::string&, int, int) override { ++calls; }
        void executed(const std::string&) override { ++calls; }
        void written(std::string_view, const std::string&,
                     const std::vector<std::pair<std::string, Variant>>&,
                     std::optional<bool>) override {
            ++calls;
        }
        int calls = 0;
    } counter;
    connection_->setListener(&counter);
    std::int32_t id = 0;
    TableAccessLibrary("ana").create()->UsuarioActual(*connection_, "", id);
    TableAccessLibrary("ana").create()->PermisosOpcion(*connection_, "", "Países", 1);
    utilities_.ProximoCodigo(*connection_, "x");
    utilities_.FechaServidor(*connection_);
    EXPECT_EQ(counter.calls, 0);
}

}  // namespace
}  // namespace catalogador::services
