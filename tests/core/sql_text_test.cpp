#include "platform/sql_text.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

using Pieces = std::vector<SqlText::Piece>;

TEST(SqlText, PlainTextHasNoData) {
    const SqlText sql = "Select 1";
    EXPECT_EQ(sql.text(), "Select 1");
    EXPECT_TRUE(sql.data().empty());
}

TEST(SqlText, JoinedTextsKeepTheirData) {
    const SqlText sql = "a = '" + SqlText::ofData("x") + "' And b = " + SqlText::ofData("12");
    EXPECT_EQ(sql.text(), "a = 'x' And b = 12");
    EXPECT_EQ(sql.data(), (Pieces{{5, 1}, {16, 2}}));
}

TEST(SqlText, ReplacedTokenBecomesData) {
    SqlText sql = "a = '[Token]' And b = [TOKEN] And c = 1";
    sql.replace("[token]", SqlText::ofData("xyz"), Compare::text);
    EXPECT_EQ(sql.text(), "a = 'xyz' And b = xyz And c = 1");
    EXPECT_EQ(sql.data(), (Pieces{{5, 3}, {18, 3}}));
}

TEST(SqlText, OwnTextThatReplacesTokenIsNoData) {
    SqlText sql = "a = [n] And b = '" + SqlText::ofData("x") + "'";
    sql.replace("[n]", "1", Compare::binary);
    EXPECT_EQ(sql.text(), "a = 1 And b = 'x'");
    EXPECT_EQ(sql.data(), (Pieces{{15, 1}}));
}

TEST(SqlText, TokenInsideDataStaysDataWhateverReplacesIt) {
    SqlText sql = "a = '" + SqlText::ofData("<[n]>") + "'";
    sql.replace("[n]", "1", Compare::binary);
    EXPECT_EQ(sql.text(), "a = '<1>'");
    EXPECT_EQ(sql.data(), (Pieces{{5, 3}}));
}

TEST(SqlText, TokenThatReachesIntoDataBecomesData) {
    SqlText sql = "a = [" + SqlText::ofData("n]");
    sql.replace("[n]", "1", Compare::binary);
    EXPECT_EQ(sql.text(), "a = 1");
    EXPECT_EQ(sql.data(), (Pieces{{4, 1}}));
}

TEST(SqlText, ListOfCodesIsToldFromValues) {
    const SqlText sql = "a In (" + SqlText::ofData("1,2", SqlText::Kind::codes) +
                        SqlText::ofData("3") + SqlText::ofData("4") + ")";
    EXPECT_EQ(sql.data(), (Pieces{{6, 3, SqlText::Kind::codes}, {9, 2}}));
}

TEST(SqlText, RefusalKeepsTheText) {
    const DataRefused refused("O'Brien");
    EXPECT_EQ(refused.number(), error_number::dataRefused);
    EXPECT_EQ(refused.data(), "O'Brien");
}

}  // namespace
}  // namespace catalogador
