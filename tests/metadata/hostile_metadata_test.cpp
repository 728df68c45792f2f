#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "../sql/dialects.h"
#include "metadata_database.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

std::string quoted(const std::string& text) {
    return "'" + replaceText(text, "'", "''", Compare::binary) + "'";
}

/// Puts a statement wherever metadata has one, as it is and as a follow-up.
std::vector<std::string> everywhere(const std::string& sql) {
    const std::string text = quoted(sql);
    return {"Update Catalogador Set ABMConsulta = " + text + ", ABMSQLValidarDuplicados = " + text +
                " Where ABMIDFormVista = 41",
            "Update CatalogadorControles Set ACoDatosCombo = " + text +
                " Where ACoKeyControl = "
                "'Valor3'",
            "Update genForaneas Set ForSQLForanea = " + text + ", ForSQLUpdate = " + text +
                " Where ForTablaAControlar = 'Units'"};
}

const std::vector<std::string>& hostileStatements() {
    static const std::vector<std::string> statements{
        "Delete From genCodigoTexto",
        "Update genCodigoTexto Set CTeTextoCorto = 'x'",
        "Insert Into genListas (LisIDLista, LisIDClave) Values (9, 9)",
        "Drop Table genListas",
        "Create Table Planted (x INTEGER)",
        "Alter Table genListas Add x INTEGER",
        "Select CTeCodigo, CTeTextoCorto From genCodigoTexto; Delete From genCodigoTexto",
        "Select CTeCodigo, CTeTextoCorto From genCodigoTexto; --\n Drop Table genListas",
        "With gone As (Select 1 As x) Delete From genCodigoTexto",
        "Select * Into Planted From genCodigoTexto",
        "Commit",
        "Rollback",
        "Begin",
        "Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeCodigo = [prmID]; Commit; "
        "Drop Table genListas",
        "SELECT 1, 2 UNION SELECT 3, 4; DELETE FROM genListas"};
    return statements;
}

std::string fileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

std::vector<std::filesystem::path> filesBeside(const std::filesystem::path& file) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path()))
        files.push_back(entry.path().filename());
    return files;
}

TEST(HostileMetadata, LeavesEveryByteOfASqliteFileAsItWas) {
    auto statements = hostileStatements();
    for (const char* sql :
         {"Pragma user_version = 7", "Pragma query_only = 0", "Attach 'planted.db' As planted",
          "Vacuum Into 'planted.db'", "Vacuum", "Reindex",
          "Replace Into genListas (LisIDLista, LisIDClave) Values (9, 9)",
          "Explain Delete From genCodigoTexto",
          "Insert Into genListas (LisIDLista, LisIDClave) Values (9, 9) Returning 1, 2"})
        statements.emplace_back(sql);
    const auto database = test::MetadataDatabase::create("sqlite");
    for (const std::string& sql : statements) {
        SCOPED_TRACE(sql);
        database->run(everywhere(sql));
        const std::string before = fileText(database->file());
        EXPECT_FALSE(database->findings().empty());
        EXPECT_EQ(before == fileText(database->file()), true) << "the file has changed";
        EXPECT_EQ(filesBeside(database->file()).size(), 1U);
        database->fill();
    }
}

TEST(CheckedDatabase, CanBeWrittenToAfterwards) {
    const auto database = test::MetadataDatabase::create("sqlite");
    EXPECT_TRUE(database->findings().empty());
    database->run("Delete From genNumeradores Where NumNombre = 'Units'");
    EXPECT_EQ(database->findings().size(), 1U);
}

class HostileServer : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        std::string kind = GetParam();
        kind.front() = static_cast<char>(kind.front() - 'A' + 'a');
        database_ = test::MetadataDatabase::create(kind);
        if (!database_) GTEST_SKIP() << "There is no server";
        database_->run("Insert Into genListas (LisIDLista, LisIDClave) Values (1, 1)");
    }

    /// Everything that the database holds, as text.
    std::string contents() {
        rdoSession& session = *database_->connection().session();
        std::string text;
        for (const auto& table : session.query(
                 "Select table_name From information_schema.tables Where table_schema "
                 "In ('public', " +
                 std::string(database_->dialect() == dialects::mariadb ? "Database()" : "'none'") +
                 ") Order By table_name")) {
            const std::string name = toText(table[0], Regional{});
            text += name + "\n";
            for (const auto& row : session.query("Select * From " + name)) {
                for (const Variant& value : row) text += toTextOrEmpty(value, Regional{}) + "|";
                text += "\n";
            }
        }
        return text;
    }

    void expectUnchanged(const std::string& sql) {
        SCOPED_TRACE(sql);
        database_->run(everywhere(sql));
        const std::string before = contents();
        EXPECT_FALSE(database_->findings().empty());
        EXPECT_EQ(before, contents());
    }

    std::unique_ptr<test::MetadataDatabase> database_;
};
INSTANTIATE_TEST_SUITE_P(, HostileServer, testing::Values("Postgresql", "Mariadb"),
                         [](const auto& given) { return given.param; });

TEST_P(HostileServer, IsLeftAsItWas) {
    for (const std::string& sql : hostileStatements()) expectUnchanged(sql);
}

TEST_P(HostileServer, RunsNoFunctionThatWrites) {
    const bool mariadb = database_->dialect() == dialects::mariadb;
    database_->run(mariadb ? "Create Function plant() Returns Integer Begin Insert Into genListas "
                             "(LisIDLista, LisIDClave) Values (9, 9); Return 1; End"
                           : "Create Function plant() Returns Integer As 'Insert Into genListas "
                             "(LisIDLista, LisIDClave) Values (9, 9) Returning 1' Language Sql");
    expectUnchanged("Select plant(), CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 41");
}

TEST_P(HostileServer, DrawsFromNoSequenceAndWritesNoFile) {
    database_->run("Create Sequence drawn");
    const bool mariadb = database_->dialect() == dialects::mariadb;
    expectUnchanged(mariadb ? "Select Nextval(drawn), 2" : "Select Nextval('drawn'), 2");
    if (!mariadb)
        expectUnchanged(
            "With gone As (Delete From genListas Returning LisIDClave) Select LisIDClave, 1 From "
            "gone");
    const auto planted = std::filesystem::temp_directory_path() / "planted-by-metadata.txt";
    expectUnchanged("Select 1, 2 Into Outfile '" + planted.string() + "'");
    EXPECT_FALSE(std::filesystem::exists(planted));
}

}  // namespace
}  // namespace catalogador
