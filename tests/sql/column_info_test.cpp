#include "adapters/sql/column_info.h"

#include <gtest/gtest.h>

#include "dialects.h"
#include "platform/rdo.h"

namespace catalogador {
namespace {

constexpr int codeVarchar = 12;
constexpr int codeReal = 7;

TEST(ColumnKind, FollowsDeclaredTypeOfSqlite) {
    const auto kind = [](const char* name) {
        return dialects::sqlite.columnKind(codeVarchar, name);
    };
    EXPECT_EQ(kind("bit"), sql::ColumnKind::boolean);
    EXPECT_EQ(kind("BIT(1)"), sql::ColumnKind::boolean);
    EXPECT_EQ(kind("Boolean"), sql::ColumnKind::boolean);
    EXPECT_EQ(kind("MEDIUMINT UNSIGNED"), sql::ColumnKind::integer);
    EXPECT_EQ(kind("decimal(18,4)"), sql::ColumnKind::decimal);
    EXPECT_EQ(kind("NUMERIC"), sql::ColumnKind::decimal);
    EXPECT_EQ(kind("money"), sql::ColumnKind::decimal);
    EXPECT_EQ(kind("double precision"), sql::ColumnKind::real);
    EXPECT_EQ(kind("DATETIME"), sql::ColumnKind::timestamp);
    EXPECT_EQ(kind("date"), sql::ColumnKind::date);
    EXPECT_EQ(kind("nvarchar"), sql::ColumnKind::text);
    EXPECT_EQ(kind("blob"), sql::ColumnKind::binary);
    EXPECT_EQ(kind("whatever"), sql::ColumnKind::text);
}

TEST(ColumnKind, FollowsCodeOfOtherDatabases) {
    EXPECT_EQ(dialects::mariadb.columnKind(bitColumnType, "bit"), sql::ColumnKind::boolean);
    EXPECT_EQ(dialects::mariadb.columnKind(codeReal, "float"), sql::ColumnKind::single);
    EXPECT_EQ(dialects::postgresql.columnKind(codeVarchar, "bool"), sql::ColumnKind::boolean);
    EXPECT_EQ(dialects::postgresql.columnKind(codeVarchar, "interval"), sql::ColumnKind::text);
    EXPECT_EQ(dialects::other.columnKind(-11, "guid"), sql::ColumnKind::other);
}

TEST(ColumnTypeCode, IsBitForEveryBoolean) {
    EXPECT_EQ(sql::columnTypeCode({"a", "a", sql::ColumnKind::boolean, codeVarchar, "bool", 5}),
              bitColumnType);
    EXPECT_EQ(sql::columnTypeCode({"a", "a", sql::ColumnKind::text, codeVarchar, "varchar", 5}),
              codeVarchar);
}

TEST(VariantOf, ReadsValuesOfTheirKind) {
    EXPECT_EQ(sql::variantOf("1", sql::ColumnKind::boolean), Variant(true));
    EXPECT_EQ(sql::variantOf("0", sql::ColumnKind::boolean), Variant(false));
    EXPECT_EQ(sql::variantOf("-7", sql::ColumnKind::boolean), Variant(true));
    EXPECT_EQ(sql::variantOf("-9223372036854775808", sql::ColumnKind::integer), Variant(INT64_MIN));
    EXPECT_EQ(sql::variantOf("12.50", sql::ColumnKind::decimal), Variant(Decimal{"12.50"}));
    EXPECT_EQ(sql::variantOf("1.0e+300", sql::ColumnKind::real), Variant(1e300));
    EXPECT_EQ(sql::variantOf("2024-02-29", sql::ColumnKind::date), Variant(Date{2024, 2, 29}));
    EXPECT_EQ(sql::variantOf("2024-02-29 01:02:03", sql::ColumnKind::timestamp),
              Variant(Date{2024, 2, 29, 1, 2, 3}));
    EXPECT_EQ(sql::variantOf(" 12 ", sql::ColumnKind::text), Variant(" 12 "));
}

TEST(VariantOf, GivesStoredTextWhereItIsNoValueOfTheKind) {
    for (const sql::ColumnKind kind :
         {sql::ColumnKind::boolean, sql::ColumnKind::integer, sql::ColumnKind::decimal,
          sql::ColumnKind::real, sql::ColumnKind::date, sql::ColumnKind::timestamp})
        for (const char* text : {"", "abc", "12,5", "1 2", "inf", "nan", "2024-13-45"})
            EXPECT_EQ(sql::variantOf(text, kind), Variant(text)) << text;
}

TEST(VariantOf, KeepsNumbersThatAreNoIntegers) {
    EXPECT_EQ(sql::variantOf("3.5", sql::ColumnKind::integer), Variant(3.5));
    EXPECT_EQ(sql::variantOf("18446744073709551615", sql::ColumnKind::integer),
              Variant(Decimal{"18446744073709551615"}));
    EXPECT_EQ(sql::variantOf("1e3", sql::ColumnKind::decimal), Variant(1000.0));
}

TEST(ShortestText, GivesTheSameNumberBack) {
    for (const double value : {0.1 + 0.2, 1.0 / 3, -0.0, 1e300, 5e-324, 12.5})
        EXPECT_EQ(sql::finiteNumber(sql::shortestText(value)), value);
}

}  // namespace
}  // namespace catalogador
