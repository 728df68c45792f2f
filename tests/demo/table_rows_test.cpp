#include "adapters/demo/table_rows.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

TEST(SqlLiteral, DoublesTheQuotesOfATextAndKeepsEverythingElse) {
    EXPECT_EQ(sqlLiteral("Côte d'Ivoire", SchemaDialect::sqlite), "'Côte d''Ivoire'");
    EXPECT_EQ(sqlLiteral("1,Sí;2,\"No\"", SchemaDialect::postgresql), "'1,Sí;2,\"No\"'");
    EXPECT_EQ(sqlLiteral("", SchemaDialect::mariadb), "''");
}

TEST(SqlLiteral, DoublesABackslashOnlyWhereItWouldEscape) {
    EXPECT_EQ(sqlLiteral("a\\b", SchemaDialect::mariadb), "'a\\\\b'");
    EXPECT_EQ(sqlLiteral("a\\b", SchemaDialect::sqlite), "'a\\b'");
    EXPECT_EQ(sqlLiteral("a\\b", SchemaDialect::postgresql), "'a\\b'");
}

TEST(SqlLiteral, WritesOtherValuesWithoutQuotes) {
    EXPECT_EQ(sqlLiteral(Null(), SchemaDialect::sqlite), "NULL");
    EXPECT_EQ(sqlLiteral(true, SchemaDialect::sqlite), "TRUE");
    EXPECT_EQ(sqlLiteral(false, SchemaDialect::sqlite), "FALSE");
    EXPECT_EQ(sqlLiteral(-724, SchemaDialect::sqlite), "-724");
    EXPECT_EQ(sqlLiteral(Decimal{"10.50"}, SchemaDialect::sqlite), "10.50");
}

TEST(SqlLiteral, WritesANumberWithAPointAndNoMoreDigitsThanItNeeds) {
    EXPECT_EQ(sqlLiteral(10.5, SchemaDialect::sqlite), "10.5");
    EXPECT_EQ(sqlLiteral(0.1, SchemaDialect::sqlite), "0.1");
    EXPECT_EQ(sqlLiteral(724.0, SchemaDialect::sqlite), "724");
}

TEST(SqlLiteral, WritesADateInIsoForm) {
    EXPECT_EQ(sqlLiteral(Date{2024, 3, 1, 9, 5, 0, 0}, SchemaDialect::sqlite),
              "'2024-03-01 09:05:00'");
}

TEST(InsertStatements, CarryUpToTheGivenNumberOfRowsEach) {
    const TableRows table{"T", "A, B", {{1, "x"}, {2, Null()}, {3, "z"}}};
    EXPECT_EQ(insertStatements(table, SchemaDialect::sqlite, 2),
              (std::vector<std::string>{"INSERT INTO T (A, B) VALUES\n(1, 'x'),\n(2, NULL)",
                                        "INSERT INTO T (A, B) VALUES\n(3, 'z')"}));
}

TEST(InsertStatements, AreNoneForATableWithoutRows) {
    EXPECT_TRUE(insertStatements({"T", "A", {}}, SchemaDialect::sqlite).empty());
}

}  // namespace
}  // namespace catalogador
