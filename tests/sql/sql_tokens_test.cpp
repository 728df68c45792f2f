#include "adapters/sql/sql_tokens.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dialects.h"

namespace catalogador {
namespace {

/// The tokens with a bar behind each; "?" marks one that is never closed.
std::string read(std::string_view sql, const sql::SqlSyntax& syntax) {
    std::string all;
    for (const sql::SqlToken& token : sql::tokensOf(sql, syntax))
        all += std::string(token.text) + (token.closed ? "|" : "?|");
    return all;
}
std::string read(std::string_view sql, const sql::Dialect& dialect) {
    sql::SqlSyntax syntax = dialect.facts().syntax;
    if (dialect == dialects::mariadb) syntax.serverVersion = 101106;
    return read(sql, syntax);
}

TEST(SqlTokens, NumberIsOneWord) {
    for (const sql::Dialect& dialect :
         {std::cref(dialects::sqlite), std::cref(dialects::postgresql),
          std::cref(dialects::mariadb)}) {
        EXPECT_EQ(read("1.5e-10 -3 .5 7. t.c", dialect), "1.5e-10|-|3|.5|7.|t|.|c|");
        EXPECT_EQ(read("1e x", dialect), dialect == dialects::postgresql ? "1|e|x|" : "1e|x|");
    }
}

TEST(SqlTokens, PostgresqlEndsACommentAtACarriageReturnToo) {
    EXPECT_EQ(read("1 -- x\r; 2", dialects::postgresql), "1|-- x|;|2|");
    EXPECT_EQ(read("1 -- x\r; 2", dialects::sqlite), "1|-- x\r; 2|");
}

TEST(SqlTokens, PostgresqlReadsAContinuedTextAsItsFirstPart) {
    EXPECT_EQ(read("E'a'\n'\\' b'", dialects::postgresql), "E'a'|'\\' b'|");
    EXPECT_EQ(read("E'a' -- c\r'\\''", dialects::postgresql), "E'a'|-- c|'\\''|");
    EXPECT_EQ(read("'a'\n'\\''", dialects::postgresql), "'a'|'\\''?|");
    EXPECT_EQ(read("E'a' '\\'", dialects::postgresql), "E'a'|'\\'|");
    EXPECT_EQ(read("E'a' /* \n */ '\\'", dialects::postgresql), "E'a'|/* \n */|'\\'|");
    EXPECT_EQ(read("E'', $$a$$\n'\\'", dialects::postgresql), "E''|,|$$a$$|'\\'|");
}

TEST(SqlTokens, PostgresqlHasUnicodeAndBitTexts) {
    EXPECT_EQ(read("U&'a\\'||'b' u&\"c\"\"d\"", dialects::postgresql),
              "U&'a\\'|||||'b'|u&\"c\"\"d\"|");
    EXPECT_EQ(read("B'01''x'", dialects::postgresql), "B'01'|'x'|");
    EXPECT_EQ(read("N'a' xE'\\'", dialects::postgresql), "N|'a'|xE|'\\'|");
}

TEST(SqlTokens, PostgresqlDollarQuoteFollowsANumber) {
    EXPECT_EQ(read("1$$a'b$$", dialects::postgresql), "1|$$a'b$$|");
    EXPECT_EQ(read("$\u00f1$ $$ ' $\u00f1$", dialects::postgresql), "$\u00f1$ $$ ' $\u00f1$|");
    EXPECT_EQ(read("$a$ never", dialects::postgresql), "$a$ never?|");
}

TEST(SqlTokens, PostgresqlCommentsNest) {
    EXPECT_EQ(read("/* /*/ */ */1", dialects::postgresql), "/* /*/ */ */|1|");
    EXPECT_EQ(read("/* /* */ 1", dialects::postgresql), "/* /* */ 1?|");
}

TEST(SqlTokens, MariadbReadsCommentsOfItsVersion) {
    EXPECT_EQ(read("/*!50000 1 */*2", dialects::mariadb), "/*!50000|1|*/|*|2|");
    EXPECT_EQ(read("/*! 1 */ /*M!100100 2*/", dialects::mariadb), "/*!|1|*/|/*M!100100|2|*/|");
    EXPECT_EQ(read("x /*!99999 ' */ 1", dialects::mariadb), "x|/*!99999 ' */|1|");
    EXPECT_EQ(read("/*!50701 ' */ 1", dialects::mariadb), "/*!50701 ' */|1|");
    EXPECT_EQ(read("/*M!50701 1 */", dialects::mariadb), "/*M!50701|1|*/|");
    EXPECT_EQ(read("/*!200000 /* ' */ ' */ 1", dialects::mariadb), "/*!200000 /* ' */ ' */|1|");
    EXPECT_EQ(read("/* /* */ 1", dialects::mariadb), "/* /* */|1|");
}

TEST(SqlTokens, MariadbCommentNeedsABlankOrAControlCharacter) {
    EXPECT_EQ(read("1--1", dialects::mariadb), "1|-|-|1|");
    EXPECT_EQ(read("1--\x01 x\n2", dialects::mariadb), "1|--\x01 x|2|");
    EXPECT_EQ(read("1--\x7f x\n2", dialects::mariadb), "1|--\x7f x|2|");
    EXPECT_EQ(read("1--", dialects::mariadb), "1|--|");
    EXPECT_EQ(read("1 #'\n2", dialects::mariadb), "1|#'|2|");
}

TEST(SqlTokens, MariadbQuotesByItsMode) {
    sql::SqlSyntax ansi = dialects::mariadb.facts().syntax;
    ansi.doubleQuotedTexts = ansi.backslashEscapes = false;
    EXPECT_EQ(read("\"a\\\" '\\'", ansi), "\"a\\\"|'\\'|");
    EXPECT_EQ(sql::tokensOf("\"a\"", ansi)[0].kind, sql::TokenKind::quotedName);
    EXPECT_EQ(sql::tokensOf("\"a\"", dialects::mariadb.facts().syntax)[0].kind,
              sql::TokenKind::text);
    EXPECT_EQ(read("_utf8'a' N'b' x'41''42' `c``'d`", dialects::mariadb),
              "_utf8|'a'|N|'b'|x'41'|'42'|`c``'d`|");
}

TEST(SqlTokens, SqliteReadsNothingBehindANul) {
    EXPECT_EQ(read(std::string_view("1 'a\0' ; x", 10), dialects::sqlite), "1|'a?|");
    EXPECT_EQ(read("1 /* x", dialects::sqlite), "1|/* x?|");
    EXPECT_EQ(read("1 /*", dialects::sqlite), "1|/|*|");
}

TEST(SqlTokens, SqliteHasNamesInBracketsAndVariables) {
    EXPECT_EQ(read("[a'b] `c'd` \"e'f\" x'41''x'", dialects::sqlite),
              "[a'b]|`c'd`|\"e'f\"|x'41'|'x'|");
    EXPECT_EQ(read("$a('b) @c :d #e", dialects::sqlite), "$a('b)|@c|:d|#e|");
}

}  // namespace
}  // namespace catalogador
