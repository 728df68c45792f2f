#include "adapters/demo/table_rows.h"

#include <gtest/gtest.h>

namespace catalogador::demo {
namespace {

TEST(SqlLiteral, DoublesTheQuotesOfATextAndKeepsEverythingElse) {
    EXPECT_EQ(sqlLiteral("Côte d'Ivoire"), "'Côte d''Ivoire'");
    EXPECT_EQ(sqlLiteral("1,Sí;2,\"No\""), "'1,Sí;2,\"No\"'");
    EXPECT_EQ(sqlLiteral("a\\b"), "'a\\b'");
    EXPECT_EQ(sqlLiteral(""), "''");
}

TEST(SqlLiteral, WritesOtherValuesWithoutQuotes) {
    EXPECT_EQ(sqlLiteral(Null()), "NULL");
    EXPECT_EQ(sqlLiteral(true), "TRUE");
    EXPECT_EQ(sqlLiteral(false), "FALSE");
    EXPECT_EQ(sqlLiteral(-724), "-724");
    EXPECT_EQ(sqlLiteral(Decimal{"10.50"}), "10.50");
}

TEST(SqlLiteral, WritesANumberWithAPointAndNoMoreDigitsThanItNeeds) {
    EXPECT_EQ(sqlLiteral(10.5), "10.5");
    EXPECT_EQ(sqlLiteral(0.1), "0.1");
    EXPECT_EQ(sqlLiteral(724.0), "724");
}

TEST(SqlLiteral, WritesADateInIsoForm) {
    EXPECT_EQ(sqlLiteral(Date{2024, 3, 1, 9, 5, 0, 0}), "'2024-03-01 09:05:00'");
}

TEST(InsertStatements, CarryUpToTheGivenNumberOfRowsEach) {
    const TableRows table{"T", "A, B", {{1, "x"}, {2, Null()}, {3, "z"}}};
    EXPECT_EQ(insertStatements(table, 2),
              (std::vector<std::string>{"INSERT INTO T (A, B) VALUES\n(1, 'x'),\n(2, NULL)",
                                        "INSERT INTO T (A, B) VALUES\n(3, 'z')"}));
}

TEST(InsertStatements, AreNoneForATableWithoutRows) {
    EXPECT_TRUE(insertStatements({"T", "A", {}}).empty());
}

}  // namespace
}  // namespace catalogador::demo
