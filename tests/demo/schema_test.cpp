#include "adapters/schema/schema.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

class SchemaOfEveryDialect : public testing::TestWithParam<SchemaDialect> {};

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST_P(SchemaOfEveryDialect, CreatesEveryTableOnce) {
    const std::string schema = schemaStatements(GetParam());
    for (const char* table : {"Catalogador", "CatalogadorControles", "genCodigoTexto", "genListas",
                              "genForaneas", "genClasificacionesEntes", "cceImpuestos",
                              "genNumeradores", "accUsuarios", "accPermisos"}) {
        EXPECT_EQ(occurrences(schema, "CREATE TABLE " + std::string(table) + " ("), 1U) << table;
    }
    EXPECT_EQ(occurrences(schema, "CREATE TABLE "), 10U);
}

TEST_P(SchemaOfEveryDialect, EndsEachStatementWithASemicolonAndALineEnd) {
    const std::string schema = schemaStatements(GetParam());
    EXPECT_EQ(occurrences(schema, ";\n"), schemaStatementList(GetParam()).size());
    EXPECT_TRUE(schema.ends_with(";\n"));
    for (const std::string& statement : schemaStatementList(GetParam())) {
        EXPECT_EQ(statement.find(';'), std::string::npos) << statement;
    }
}

TEST_P(SchemaOfEveryDialect, LeavesMetadataOfAViewNullable) {
    const std::string schema = schemaStatements(GetParam());
    EXPECT_EQ(schema.find("ABMColumnasAncho VARCHAR(2000) NOT NULL"), std::string::npos);
    EXPECT_NE(schema.find("ABMColumnasAncho VARCHAR(2000) NULL"), std::string::npos);
    EXPECT_NE(schema.find("ABMIDAyuda SMALLINT NULL"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Databases, SchemaOfEveryDialect,
                         testing::Values(SchemaDialect::sqlite, SchemaDialect::postgresql,
                                         SchemaDialect::mariadb));

TEST(Schema, UsesTheTypesOfEachDatabase) {
    const std::string sqlite = schemaStatements(SchemaDialect::sqlite);
    EXPECT_NE(sqlite.find("CTeSiNo1 BIT NULL"), std::string::npos);
    EXPECT_NE(sqlite.find("CTeValor1 NUMERIC NULL"), std::string::npos);
    const std::string postgresql = schemaStatements(SchemaDialect::postgresql);
    EXPECT_NE(postgresql.find("CTeSiNo1 BOOLEAN NULL"), std::string::npos);
    EXPECT_NE(postgresql.find("Modificado TIMESTAMP(6) NULL"), std::string::npos);
    const std::string mariadb = schemaStatements(SchemaDialect::mariadb);
    EXPECT_NE(mariadb.find("CTeSiNo1 BIT(1) NULL"), std::string::npos);
    EXPECT_NE(mariadb.find("Modificado DATETIME(6) NULL"), std::string::npos);
    EXPECT_NE(mariadb.find(") CHARACTER SET utf8mb4;"), std::string::npos);
}

TEST(Schema, KnowsItsDialectsByName) {
    EXPECT_EQ(dialectFromName("sqlite"), SchemaDialect::sqlite);
    EXPECT_EQ(dialectFromName("postgresql"), SchemaDialect::postgresql);
    EXPECT_EQ(dialectFromName("mariadb"), SchemaDialect::mariadb);
    EXPECT_EQ(dialectFromName("oracle"), std::nullopt);
    EXPECT_EQ(dialectFromName(""), std::nullopt);
}

}  // namespace
}  // namespace catalogador
