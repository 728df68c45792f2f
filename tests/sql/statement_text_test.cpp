#include "adapters/sql/statement_text.h"

#include <gtest/gtest.h>

#include <functional>

#include "dialects.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

const std::reference_wrapper<const sql::Dialect> allDialects[] = {
    dialects::sqlite, dialects::postgresql, dialects::mariadb, dialects::other};

std::string single(std::string_view sql, const sql::Dialect& dialect = dialects::sqlite) {
    return sql::singleStatement(sql, dialect.facts().syntax);
}

bool refused(std::string_view sql, const sql::Dialect& dialect) {
    try {
        single(sql, dialect);
    } catch (const RuntimeError& error) {
        return error.number() == error_number::statementFailed;
    }
    return false;
}

std::optional<std::string> table(std::string_view sql,
                                 const sql::Dialect& dialect = dialects::sqlite) {
    return sql::writableTable(sql, dialect.facts().syntax);
}

TEST(SingleStatement, KeepsTextWithoutSeparatorAsItIs) {
    for (const sql::Dialect& dialect : allDialects)
        EXPECT_EQ(single("  Select  1 ", dialect), "  Select  1 ");
}

TEST(SingleStatement, DropsSeparatorAndWhatIsBlankBehindIt) {
    for (const sql::Dialect& dialect : allDialects) {
        EXPECT_EQ(single("Select 1;", dialect), "Select 1");
        EXPECT_EQ(single("Select 1 ; \t\n -- the end", dialect), "Select 1 ");
        EXPECT_EQ(single("Select 1; /* a; b */ ", dialect), "Select 1");
    }
}

TEST(SingleStatement, RefusesSecondStatement) {
    for (const sql::Dialect& dialect : allDialects) {
        EXPECT_TRUE(refused("Select 1; Drop Table t", dialect));
        EXPECT_TRUE(refused("Select 1;;", dialect));
        EXPECT_TRUE(refused("Select 'a'';'; Drop Table t", dialect));
        EXPECT_TRUE(refused("Select 1 /* ; */ ; -- x\n Drop Table t", dialect));
        EXPECT_TRUE(refused("Select \"a\"; Drop Table t --\"", dialect));
    }
}

TEST(SingleStatement, RefusesTextWithoutStatement) {
    for (const sql::Dialect& dialect : allDialects) {
        EXPECT_TRUE(refused("", dialect));
        EXPECT_TRUE(refused(" -- nothing\n", dialect));
        EXPECT_TRUE(refused("; Drop Table t", dialect));
    }
}

TEST(SingleStatement, SeesNoSeparatorInsideOfQuotesAndComments) {
    for (const sql::Dialect& dialect : allDialects) {
        EXPECT_FALSE(refused("Select 'a;b', 'it''s; fine'", dialect));
        EXPECT_FALSE(refused("Select \"a;b\" From t", dialect));
        EXPECT_FALSE(refused("Select 1 -- don't; stop\n, 2", dialect));
        EXPECT_FALSE(refused("Select /* don't; stop */ 1", dialect));
    }
    EXPECT_FALSE(refused("Select [a;b], `c;d` From t", dialects::sqlite));
    EXPECT_FALSE(refused("Select `a;b` From t", dialects::mariadb));
    EXPECT_FALSE(refused("Select $$a;b$$, $x$ $$;$x$", dialects::postgresql));
}

TEST(SingleStatement, ReadsBackslashesAsTheDatabaseDoes) {
    EXPECT_TRUE(refused(R"(Select '\'; Drop Table t; --')", dialects::sqlite));
    EXPECT_TRUE(refused(R"(Select '\'; Drop Table t; --')", dialects::postgresql));
    EXPECT_FALSE(refused(R"(Select '\'; Drop Table t; --')", dialects::mariadb));
    EXPECT_TRUE(refused(R"(Select '\\'; Drop Table t; --')", dialects::mariadb));
    EXPECT_FALSE(refused(R"(Select "\"; b")", dialects::mariadb));
    EXPECT_FALSE(refused(R"(Select E'\'; b')", dialects::postgresql));
    EXPECT_TRUE(refused(R"(Select E'\\'; Drop Table t)", dialects::postgresql));
    EXPECT_TRUE(refused(R"(Select nameE'\'; Drop Table t)", dialects::postgresql));
}

TEST(SingleStatement, ReadsCommentsAsTheDatabaseDoes) {
    EXPECT_FALSE(refused("Select /* /* ; */ ; */ 1", dialects::postgresql));
    EXPECT_TRUE(refused("Select /* /* ; */ ; */ 1", dialects::sqlite));
    EXPECT_FALSE(refused("Select 1 # ; x", dialects::mariadb));
    EXPECT_TRUE(refused("Select 1 # ; x", dialects::postgresql));
    EXPECT_TRUE(refused("Select 1--1; Drop Table t", dialects::mariadb));
    EXPECT_FALSE(refused("Select 1--1; Drop Table t", dialects::sqlite));
    EXPECT_TRUE(refused("Select 1 /*! ; Drop Table t */", dialects::mariadb));
    EXPECT_TRUE(refused("Select 1 /*M!100100 ; Drop Table t */", dialects::mariadb));
}

TEST(SingleStatement, TakesDollarsInNamesAndParametersForNoQuotes) {
    EXPECT_TRUE(refused("Select a$b$; Drop Table t -- $b$", dialects::postgresql));
    EXPECT_TRUE(refused("Select $1$; Drop Table t", dialects::postgresql));
}

TEST(WithoutComments, PutsBlankInPlaceOfEachComment) {
    const auto strip = [](std::string_view sql) {
        return sql::withoutComments(sql, dialects::sqlite.facts().syntax);
    };
    EXPECT_EQ(strip("Select/* ' */1 -- it's ?\n, '--'"), "Select 1  \n, '--'");
    EXPECT_EQ(strip("Select '/*'"), "Select '/*'");
    EXPECT_EQ(strip("Select 1 --"), "Select 1  ");
}

TEST(WritableTable, FindsTheOneTableAsSpelled) {
    EXPECT_EQ(table("Select * From genCodigoTexto  Where a = 1"), "genCodigoTexto");
    EXPECT_EQ(table("select a, (select max(b) from u) from t order by a"), "t");
    EXPECT_EQ(table("SELECT * FROM \"odd name\" x WHERE x.a = 1"), "\"odd name\"");
    EXPECT_EQ(table("Select * From main.[my table] As m;"), "main.[my table]");
    EXPECT_EQ(table("Select * /* From u */ From t -- , v\n Limit 1"), "t");
    EXPECT_EQ(table("Select * From t For Update", dialects::postgresql), "t");
    EXPECT_EQ(table("Select 'From u' As a From `t`", dialects::mariadb), "`t`");
    EXPECT_EQ(table("Select a, (Select Count(*) From u), Max(a, b), min, Count(*) Over (), "
                    "'Sum(a)' From t Where Exists (Select Sum(b) From u)"),
              "t");
}

TEST(WritableTable, IsNoneWhenRowsAreNotThoseOfOneTable) {
    for (const char* sql : {"Select * From a, b",
                            "Select * From a Join b On 1 = 1",
                            "Select * From a x Left Join b",
                            "Select * From a Natural Join b",
                            "Select Distinct a From t",
                            "Select a From t Group By a",
                            "Select a From t Where 1 = 1 Union Select a From u",
                            "Select a From t Intersect Select a From u",
                            "Select * From (Select * From t)",
                            "Select * From f(1)",
                            "With t As (Select 1) Select * From t",
                            "Select 1",
                            "Update t Set a",
                            "Select * From",
                            "Delete From t",
                            "Values (1)",
                            "Select Count(*) From t",
                            "Select 1 + coalesce( /* all */ sum (a), 0) x From t",
                            "Select a, Min(b) From t",
                            "Select Max(f(a, b)) From t"})
        EXPECT_FALSE(table(sql).has_value()) << sql;
}

TEST(SelectItems, FindsColumnsBehindAliases) {
    const auto columns = [](std::string_view sql) {
        std::string all;
        for (const sql::SelectItem& item : sql::selectItems(sql, dialects::sqlite.facts().syntax))
            all += (item.isStar ? "*" : item.aliasedColumn) + "|";
        return all;
    };
    EXPECT_EQ(columns("Select a, b As x, t.c y, \"d e\" As [z], main.t.f 'g' From t"),
              "|b|c|d e|f|");
    EXPECT_EQ(columns("Select *, a As b, t.*, a + 1 As c, f(a) As d, (b) e, 1 * 2 From t"),
              "*|a|*|||||");
    EXPECT_EQ(columns("Select a As b"), "a|");
    EXPECT_EQ(columns("Update t Set a = 1"), "");
}

}  // namespace
}  // namespace catalogador
