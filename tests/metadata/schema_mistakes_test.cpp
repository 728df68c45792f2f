#include <gtest/gtest.h>

#include "metadata_database.h"

namespace catalogador {
namespace {

std::string all(const std::vector<checks::Finding>& findings) {
    std::string text;
    for (const auto& finding : findings) text += test::textOf(finding) + "\n";
    return text;
}

/// A change of the tables and what it gives.
struct TableMistake {
    std::string name;
    std::vector<std::string> statements;
    std::string findings;
};
void PrintTo(const TableMistake& mistake, std::ostream* out) {
    *out << mistake.name;
}

/// Makes a table anew with other columns, and the same rows.
std::vector<std::string> remade(const std::string& table, const std::string& columns,
                                const std::string& names) {
    return {"Create Table Remade (" + columns + ")",
            "Insert Into Remade (" + names + ") Select " + names + " From " + table,
            "Drop Table " + table, "Alter Table Remade Rename To " + table};
}

const std::string recordColumns =
    "CTeIDTipoVista SMALLINT, CTeCodigo INTEGER, CTeTextoCorto VARCHAR(255), CTeTextoLargo "
    "VARCHAR(2000), CTeValor1 NUMERIC, CTeValor2 NUMERIC, CTeValor3 NUMERIC, ";
const std::string recordNames =
    "CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1, CTeValor2, CTeValor3, "
    "CTeSiNo1";
const std::string recordKey = ", Primary Key (CTeIDTipoVista, CTeCodigo)";

class TableMistakeIsFound : public testing::TestWithParam<TableMistake> {};
INSTANTIATE_TEST_SUITE_P(
    , TableMistakeIsFound,
    testing::Values(
        TableMistake{"NoRules", {"Drop Table genForaneas"}, "CAT001 error - genForaneas. \n"},
        TableMistake{"NoUsersForAnAccessRule",
                     {"Drop Table accUsuarios"},
                     "CAT001 error - accUsuarios. \nCAT023 error 41 "
                     "Catalogador.ABMValidarAcceso \n"},
        // A rule for every record reads and writes that table.
        TableMistake{"NoListsOfUsers",
                     {"Drop Table genListas"},
                     "CAT123 error - genForaneas.ForSQLForanea 1\nCAT128 error - "
                     "genForaneas.ForSQLUpdate 1\nCAT006 note - genListas. \n"},
        TableMistake{
            "NoStamp",
            remade("genCodigoTexto", recordColumns + "CTeSiNo1 BIT" + recordKey, recordNames),
            "CAT002 error - genCodigoTexto.Modificado \n"},
        TableMistake{"MarkAsNumber",
                     remade("genCodigoTexto",
                            recordColumns + "CTeSiNo1 SMALLINT, Modificado TIMESTAMP" + recordKey,
                            recordNames),
                     "CAT003 warning - genCodigoTexto.CTeSiNo1 \n"},
        TableMistake{"RecordsWithoutAKey",
                     remade("genCodigoTexto", recordColumns + "CTeSiNo1 BIT, Modificado TIMESTAMP",
                            recordNames),
                     "CAT004 warning - genCodigoTexto. \n"},
        TableMistake{
            "StampOfDays",
            remade("genCodigoTexto", recordColumns + "CTeSiNo1 BIT, Modificado DATE" + recordKey,
                   recordNames),
            "CAT005 warning - genCodigoTexto.Modificado \n"},
        TableMistake{"ViewTwice",
                     {"Create Table Remade As Select * From Catalogador",
                      "Insert Into Remade Select * From Catalogador Where ABMIDFormVista = 42",
                      "Drop Table Catalogador", "Alter Table Remade Rename To Catalogador"},
                     "CAT004 warning - Catalogador. \nCAT011 warning 42 "
                     "Catalogador.ABMIDFormVista \n"},
        TableMistake{"ViewOfNoNumber",
                     {"Update Catalogador Set ABMIDFormVista = 40000 Where ABMIDFormVista = 43",
                      "Update CatalogadorControles Set ACoIDFormVista = 40000 Where "
                      "ACoIDFormVista = 43",
                      "Update genCodigoTexto Set CTeIDTipoVista = 40000 Where CTeIDTipoVista = 43",
                      "Update Catalogador Set ABMConsulta = Replace(ABMConsulta, '43', '40000')"},
                     "CAT012 warning 40000 Catalogador.ABMIDFormVista \n"}),
    [](const auto& given) { return given.param.name; });

TEST_P(TableMistakeIsFound, AndNothingElseIs) {
    const auto database = test::MetadataDatabase::create("sqlite");
    database->run(GetParam().statements);
    EXPECT_EQ(all(database->findings()), GetParam().findings);
}

TEST(TablesThatAreMissing, AreToldEachAndNothingElse) {
    const auto database = test::MetadataDatabase::create("sqlite");
    for (const char* table : {"Catalogador", "CatalogadorControles", "genCodigoTexto", "genListas",
                              "genForaneas", "genClasificacionesEntes", "cceImpuestos",
                              "genNumeradores", "accUsuarios", "accPermisos"})
        database->run("Drop Table " + std::string(table));
    EXPECT_EQ(all(database->findings()),
              "CAT001 error - Catalogador. \nCAT001 error - CatalogadorControles. \n"
              "CAT006 note - accPermisos. \nCAT006 note - accUsuarios. \n"
              "CAT006 note - cceImpuestos. \nCAT006 note - genClasificacionesEntes. \n"
              "CAT001 error - genCodigoTexto. \nCAT001 error - genForaneas. \n"
              "CAT006 note - genListas. \nCAT001 error - genNumeradores. \n");
}

TEST(StampsOfMariadb, ThatKeepWholeSecondsAreTold) {
    const auto database = test::MetadataDatabase::create("mariadb");
    if (!database) GTEST_SKIP() << "There is no server";
    database->run("Alter Table genCodigoTexto Modify Modificado DATETIME");
    EXPECT_EQ(all(database->findings()), "CAT005 warning - genCodigoTexto.Modificado \n");
}

TEST(StampsOfPostgresql, ThatKeepWholeSecondsAreTold) {
    const auto database = test::MetadataDatabase::create("postgresql");
    if (!database) GTEST_SKIP() << "There is no server";
    database->run("Alter Table genCodigoTexto Alter Modificado Type TIMESTAMP(0)");
    EXPECT_EQ(all(database->findings()), "CAT005 warning - genCodigoTexto.Modificado \n");
}

}  // namespace
}  // namespace catalogador
