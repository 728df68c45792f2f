#include "adapters/schema/schema.h"

#include <gtest/gtest.h>

#include <functional>

#include "../sql/dialects.h"

namespace catalogador::demo {
namespace {

class SchemaOfEveryDialect
    : public testing::TestWithParam<std::reference_wrapper<const sql::Dialect>> {};

std::size_t occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST_P(SchemaOfEveryDialect, CreatesEveryTableOnce) {
    const std::string schema = schema::schemaStatements(GetParam());
    for (const char* table : {"Catalogador", "CatalogadorControles", "genCodigoTexto", "genListas",
                              "genForaneas", "genClasificacionesEntes", "cceImpuestos",
                              "genNumeradores", "accUsuarios", "accPermisos"}) {
        EXPECT_EQ(occurrences(schema, "CREATE TABLE " + std::string(table) + " ("), 1U) << table;
    }
    EXPECT_EQ(occurrences(schema, "CREATE TABLE "), 10U);
}

TEST_P(SchemaOfEveryDialect, EndsEachStatementWithASemicolonAndALineEnd) {
    const std::string schema = schema::schemaStatements(GetParam());
    EXPECT_EQ(occurrences(schema, ";\n"), schema::schemaStatementList(GetParam()).size());
    EXPECT_TRUE(schema.ends_with(";\n"));
    for (const std::string& statement : schema::schemaStatementList(GetParam())) {
        EXPECT_EQ(statement.find(';'), std::string::npos) << statement;
    }
}

TEST_P(SchemaOfEveryDialect, LeavesMetadataOfAViewNullable) {
    const std::string schema = schema::schemaStatements(GetParam());
    EXPECT_EQ(schema.find("ABMColumnasAncho VARCHAR(2000) NOT NULL"), std::string::npos);
    EXPECT_NE(schema.find("ABMColumnasAncho VARCHAR(2000) NULL"), std::string::npos);
    EXPECT_NE(schema.find("ABMIDAyuda SMALLINT NULL"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Databases, SchemaOfEveryDialect,
                         testing::Values(std::cref(dialects::sqlite),
                                         std::cref(dialects::postgresql),
                                         std::cref(dialects::mariadb)));

TEST(Schema, UsesTheTypesOfEachDatabase) {
    const std::string sqlite = schema::schemaStatements(dialects::sqlite);
    EXPECT_NE(sqlite.find("CTeSiNo1 BIT NULL"), std::string::npos);
    EXPECT_NE(sqlite.find("CTeValor1 NUMERIC NULL"), std::string::npos);
    const std::string postgresql = schema::schemaStatements(dialects::postgresql);
    EXPECT_NE(postgresql.find("CTeSiNo1 BOOLEAN NULL"), std::string::npos);
    EXPECT_NE(postgresql.find("Modificado TIMESTAMP(6) NULL"), std::string::npos);
    const std::string mariadb = schema::schemaStatements(dialects::mariadb);
    EXPECT_NE(mariadb.find("CTeSiNo1 BIT(1) NULL"), std::string::npos);
    EXPECT_NE(mariadb.find("Modificado DATETIME(6) NULL"), std::string::npos);
    EXPECT_NE(mariadb.find(") CHARACTER SET utf8mb4;"), std::string::npos);
}

TEST(Schema, KnowsItsDialectsByName) {
    for (const char* name : {"sqlite", "postgresql", "mariadb"}) {
        const sql::Dialect* dialect = sql::dialectNamed(name);
        ASSERT_NE(dialect, nullptr) << name;
        EXPECT_EQ(dialect->facts().name, name);
    }
    EXPECT_EQ(sql::dialectNamed("oracle"), nullptr);
    EXPECT_EQ(sql::dialectNamed(""), nullptr);
}

}  // namespace
}  // namespace catalogador::demo
