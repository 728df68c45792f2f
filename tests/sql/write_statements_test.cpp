#include "adapters/sql/write_statements.h"

#include <gtest/gtest.h>

#include "dialects.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

// Codes of the data-access standard.
constexpr int sqlNumeric = 2;
constexpr int sqlInteger = 4;
constexpr int sqlDouble = 8;
constexpr int sqlVarchar = 12;
constexpr int sqlBigint = -5;
constexpr int sqlBit = -7;
constexpr int sqlTimestamp = 93;

const sql::ColumnInfo code{"Code", "Code", sql::ColumnKind::integer, sqlInteger, "int4", 10};
const sql::ColumnInfo name{"Name", "Name", sql::ColumnKind::text, sqlVarchar, "varchar", 60};
const sql::ColumnInfo amount{"Amount",   "Amount",  sql::ColumnKind::decimal,
                             sqlNumeric, "numeric", 10};
const sql::ColumnInfo rate{"Rate", "Rate", sql::ColumnKind::real, sqlDouble, "float8", 15};
const sql::ColumnInfo flag{"Flag", "Flag", sql::ColumnKind::boolean, sqlBit, "bool", 1};
const sql::ColumnInfo stamp{"Stamp",      "Stamp",     sql::ColumnKind::timestamp,
                            sqlTimestamp, "timestamp", 26};
const sql::ColumnInfo computed{"Sum", "", sql::ColumnKind::integer, sqlInteger, "int4", 10};
const sql::ColumnInfo picture{"Picture", "Picture", sql::ColumnKind::binary, -4, "blob", 0};
const sql::ColumnInfo document{"Document", "Document", sql::ColumnKind::text,
                               sqlVarchar, "json",     0};

std::optional<std::string> read(const char* text) {
    return text;
}
const std::optional<std::string> readNull;

TEST(QuotedName, DoublesQuotesOfTheDatabase) {
    EXPECT_EQ(dialects::sqlite.quotedName("a\"b"), "\"a\"\"b\"");
    EXPECT_EQ(dialects::mariadb.quotedName("a`b"), "`a``b`");
}

TEST(InsertStatement, NamesColumnsAndWritesNullIntoTheText) {
    const auto statement = sql::insertStatement(dialects::sqlite, "t",
                                                {{&code, 7}, {&name, Null{}}, {&amount, "12,5"}});
    EXPECT_EQ(statement.text, "INSERT INTO t (\"Code\", \"Name\", \"Amount\") VALUES (?, NULL, ?)");
    const std::vector<sql::Parameter> expected{{std::int64_t{7}, sqlBigint}, {"12,5", sqlVarchar}};
    EXPECT_EQ(statement.parameters, expected);
}

TEST(InsertStatement, OfNoColumnsGivesRowOfDefaults) {
    EXPECT_EQ(sql::insertStatement(dialects::sqlite, "t", {}).text, "INSERT INTO t DEFAULT VALUES");
    EXPECT_EQ(sql::insertStatement(dialects::mariadb, "t", {}).text, "INSERT INTO t () VALUES ()");
}

TEST(UpdateStatement, ExpectsEveryValueRead) {
    const auto statement = sql::updateStatement(
        dialects::postgresql, "t", {{&name, "new"}},
        {{&code, read("7")}, {&name, readNull}, {&amount, read("1.50")}, {&flag, read("1")}});
    EXPECT_EQ(statement.text,
              "UPDATE t SET \"Name\" = ? WHERE \"Code\" = ? AND \"Name\" IS NULL AND "
              "\"Amount\" = ? AND \"Flag\" = ?");
    const std::vector<sql::Parameter> expected{
        {"new", sqlVarchar}, {std::int64_t{7}, sqlBigint}, {"1.50", sqlNumeric}, {true, sqlBit}};
    EXPECT_EQ(statement.parameters, expected);
}

TEST(UpdateStatement, ComparesTextsToTheLetter) {
    const std::vector<sql::ExpectedValue> expected{{&name, read("Ana")}};
    const auto where = [&](const sql::Dialect& dialect) {
        return sql::updateStatement(dialect, "t", {{&name, "x"}}, expected).text;
    };
    EXPECT_EQ(where(dialects::mariadb),
              "UPDATE t SET `Name` = ? WHERE CONVERT(`Name` USING utf8mb4) COLLATE "
              "utf8mb4_nopad_bin = ?");
    EXPECT_EQ(where(dialects::sqlite),
              "UPDATE t SET \"Name\" = ? WHERE CAST(\"Name\" AS TEXT) = ? COLLATE BINARY");
}

TEST(UpdateStatement, AllowsForTheRoundingOfRealNumbers) {
    const auto statement = sql::updateStatement(dialects::postgresql, "t", {{&code, 1}},
                                                {{&rate, read("0.30000000000000004")}});
    EXPECT_EQ(statement.text, "UPDATE t SET \"Code\" = ? WHERE \"Rate\" BETWEEN ? AND ?");
    const double low = std::get<double>(statement.parameters.at(1).value);
    const double high = std::get<double>(statement.parameters.at(2).value);
    EXPECT_LT(low, 0.3);
    EXPECT_GT(high, 0.30000000000000004);
    EXPECT_GT(low, 0.2999999999);
    EXPECT_LT(high, 0.3000000001);
}

TEST(UpdateStatement, ExpectsWhatWasWrittenSinceTheRowWasRead) {
    const auto statement = sql::updateStatement(dialects::sqlite, "t", {{&code, 1}},
                                                {{&name, Variant("x")}, {&stamp, Variant(Null{})}});
    EXPECT_EQ(statement.text,
              "UPDATE t SET \"Code\" = ? WHERE \"Name\" = ? COLLATE BINARY AND \"Stamp\" IS NULL");
}

TEST(DeleteStatement, LeavesOutWhatCannotBeCompared) {
    const auto statement = sql::deleteStatement(dialects::postgresql, "t",
                                                {{&computed, read("3")},
                                                 {&picture, read("00")},
                                                 {&document, read("{}")},
                                                 {&code, read("7")}});
    EXPECT_EQ(statement.text, "DELETE FROM t WHERE \"Code\" = ?");
}

TEST(DeleteStatement, IsRefusedWhenNothingIdentifiesTheRow) {
    EXPECT_THROW(sql::deleteStatement(dialects::sqlite, "t", {{&computed, read("3")}}),
                 RuntimeError);
}

TEST(ParameterFor, ConvertsToWhatTheColumnHolds) {
    const auto value = [](const sql::ColumnInfo& column, const Variant& variant) {
        return sql::parameterFor(dialects::postgresql, column, variant);
    };
    EXPECT_EQ(value(flag, 1), (sql::Parameter{true, sqlBit}));
    EXPECT_EQ(value(flag, false), (sql::Parameter{false, sqlBit}));
    EXPECT_EQ(value(code, true), (sql::Parameter{std::int64_t{1}, sqlBigint}));
    EXPECT_EQ(value(name, 12), (sql::Parameter{"12", sqlVarchar}));
    EXPECT_EQ(value(name, 0.5), (sql::Parameter{"0.5", sqlVarchar}));
    EXPECT_EQ(value(stamp, Date{2024, 1, 2, 3, 4, 5}),
              (sql::Parameter{"2024-01-02 03:04:05", sqlTimestamp}));
    EXPECT_EQ(value(amount, "12,5"), (sql::Parameter{"12,5", sqlNumeric}));
}

}  // namespace
}  // namespace catalogador
