#include "adapters/sql/column_info.h"

#include <gtest/gtest.h>

#include "platform/rdo.h"

namespace catalogador {
namespace {

constexpr int codeVarchar = 12;
constexpr int codeReal = 7;

TEST(ColumnKind, FollowsDeclaredTypeOfSqlite) {
    const auto kind = [](const char* name) {
        return columnKind(Dialect::sqlite, codeVarchar, name);
    };
    EXPECT_EQ(kind("bit"), ColumnKind::boolean);
    EXPECT_EQ(kind("BIT(1)"), ColumnKind::boolean);
    EXPECT_EQ(kind("Boolean"), ColumnKind::boolean);
    EXPECT_EQ(kind("MEDIUMINT UNSIGNED"), ColumnKind::integer);
    EXPECT_EQ(kind("decimal(18,4)"), ColumnKind::decimal);
    EXPECT_EQ(kind("NUMERIC"), ColumnKind::decimal);
    EXPECT_EQ(kind("money"), ColumnKind::decimal);
    EXPECT_EQ(kind("double precision"), ColumnKind::real);
    EXPECT_EQ(kind("DATETIME"), ColumnKind::timestamp);
    EXPECT_EQ(kind("date"), ColumnKind::date);
    EXPECT_EQ(kind("nvarchar"), ColumnKind::text);
    EXPECT_EQ(kind("blob"), ColumnKind::binary);
    EXPECT_EQ(kind("whatever"), ColumnKind::text);
}

TEST(ColumnKind, FollowsCodeOfOtherDatabases) {
    EXPECT_EQ(columnKind(Dialect::mariadb, bitColumnType, "bit"), ColumnKind::boolean);
    EXPECT_EQ(columnKind(Dialect::mariadb, codeReal, "float"), ColumnKind::single);
    EXPECT_EQ(columnKind(Dialect::postgresql, codeVarchar, "bool"), ColumnKind::boolean);
    EXPECT_EQ(columnKind(Dialect::postgresql, codeVarchar, "interval"), ColumnKind::text);
    EXPECT_EQ(columnKind(Dialect::other, -11, "guid"), ColumnKind::other);
}

TEST(ColumnTypeCode, IsBitForEveryBoolean) {
    EXPECT_EQ(columnTypeCode({"a", "a", ColumnKind::boolean, codeVarchar, "bool", 5}),
              bitColumnType);
    EXPECT_EQ(columnTypeCode({"a", "a", ColumnKind::text, codeVarchar, "varchar", 5}), codeVarchar);
}

TEST(VariantOf, ReadsValuesOfTheirKind) {
    EXPECT_EQ(variantOf("1", ColumnKind::boolean), Variant(true));
    EXPECT_EQ(variantOf("0", ColumnKind::boolean), Variant(false));
    EXPECT_EQ(variantOf("-7", ColumnKind::boolean), Variant(true));
    EXPECT_EQ(variantOf("-9223372036854775808", ColumnKind::integer), Variant(INT64_MIN));
    EXPECT_EQ(variantOf("12.50", ColumnKind::decimal), Variant(Decimal{"12.50"}));
    EXPECT_EQ(variantOf("1.0e+300", ColumnKind::real), Variant(1e300));
    EXPECT_EQ(variantOf("2024-02-29", ColumnKind::date), Variant(Date{2024, 2, 29}));
    EXPECT_EQ(variantOf("2024-02-29 01:02:03", ColumnKind::timestamp),
              Variant(Date{2024, 2, 29, 1, 2, 3}));
    EXPECT_EQ(variantOf(" 12 ", ColumnKind::text), Variant(" 12 "));
}

TEST(VariantOf, GivesStoredTextWhereItIsNoValueOfTheKind) {
    for (const ColumnKind kind : {ColumnKind::boolean, ColumnKind::integer, ColumnKind::decimal,
                                  ColumnKind::real, ColumnKind::date, ColumnKind::timestamp})
        for (const char* text : {"", "abc", "12,5", "1 2", "inf", "nan", "2024-13-45"})
            EXPECT_EQ(variantOf(text, kind), Variant(text)) << text;
}

TEST(VariantOf, KeepsNumbersThatAreNoIntegers) {
    EXPECT_EQ(variantOf("3.5", ColumnKind::integer), Variant(3.5));
    EXPECT_EQ(variantOf("18446744073709551615", ColumnKind::integer),
              Variant(Decimal{"18446744073709551615"}));
    EXPECT_EQ(variantOf("1e3", ColumnKind::decimal), Variant(1000.0));
}

TEST(ShortestText, GivesTheSameNumberBack) {
    for (const double value : {0.1 + 0.2, 1.0 / 3, -0.0, 1e300, 5e-324, 12.5})
        EXPECT_EQ(finiteNumber(shortestText(value)), value);
}

}  // namespace
}  // namespace catalogador
