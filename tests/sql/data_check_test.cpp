#include "adapters/sql/data_check.h"

#include <gtest/gtest.h>

#include <functional>

#include "dialects.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

using Kind = SqlText::Kind;

const std::reference_wrapper<const sql::Dialect> known[] = {dialects::sqlite, dialects::postgresql,
                                                            dialects::mariadb};
const std::reference_wrapper<const sql::Dialect> all[] = {dialects::sqlite, dialects::postgresql,
                                                          dialects::mariadb, dialects::other};

sql::SqlSyntax syntax(const sql::Dialect& dialect) {
    sql::SqlSyntax found = dialect.facts().syntax;
    // As the sessions of the program are set.
    if (dialect == dialects::mariadb) {
        found.backslashEscapes = false;
        found.serverVersion = 101106;
    }
    return found;
}

/// The text that is refused; "" when the statement passes.
std::string refused(const SqlText& sql, const sql::SqlSyntax& syntax) {
    try {
        sql::requireDataStaysData(sql, syntax);
    } catch (const DataRefused& error) {
        EXPECT_EQ(error.number(), error_number::dataRefused);
        return error.data();
    }
    return "";
}

SqlText inText(const std::string& data) {
    return "Select a From t Where b = '" + SqlText::ofData(data) + "' And c = 1";
}
SqlText bare(const std::string& data, Kind kind = Kind::value) {
    return "Select a From t Where b In (" + SqlText::ofData(data, kind) + ") And c = 1";
}

void expectPasses(const SqlText& sql, const sql::Dialect& dialect) {
    EXPECT_EQ(refused(sql, syntax(dialect)), "") << dialect.facts().name << ": " << sql.text();
}
void expectRefused(const SqlText& sql, const std::string& data, const sql::Dialect& dialect) {
    EXPECT_EQ(refused(sql, syntax(dialect)), data) << dialect.facts().name << ": " << sql.text();
}

TEST(DataCheck, LetsThroughWhatNobodyTyped) {
    for (const sql::Dialect& dialect : all) {
        expectPasses("Select 'a', \"b\" From t -- it's", dialect);
        expectPasses("Select 'never closed", dialect);
    }
}

TEST(DataCheck, LetsThroughTextsWithoutQuotes) {
    for (const sql::Dialect& dialect : all)
        for (const char* data : {"Espa\u00f1a", "100 %", "a; Drop Table t", "-- x", "/* x */", "$$",
                                 "x # y", "", " ", "U&", "[a]"})
            expectPasses(inText(data), dialect);
}

TEST(DataCheck, RefusesAnApostropheEverywhere) {
    for (const sql::Dialect& dialect : all)
        for (const std::string data :
             {"O'Brien", "'", "x'", "'x", "' Or 1=1 --", "' Or '1'='1", "'; Drop Table t; --",
              "x' --\r; Delete From canary --", "'||set_config('a','b','c')--", "x' 'y", "x'\n'y",
              "x' /*!99999 ' */ ; Delete From canary #", "' Or blob_export(x'41','FILE')--", "x'/*",
              "''' Or 1=1 --", "a' And b = '"})
            expectRefused(inText(data), data, dialect);
}

TEST(DataCheck, LetsDoubledApostrophesThrough) {
    for (const sql::Dialect& dialect : all)
        for (const char* data : {"O''Brien", "''", "''''", "'' Or 1=1 --"})
            expectPasses(inText(data), dialect);
}

TEST(DataCheck, RefusesANulEverywhere) {
    const std::string data("a\0b", 3);
    for (const sql::Dialect& dialect : all) {
        expectRefused(inText(data), data, dialect);
        expectRefused(bare(std::string("1\0", 2)), std::string("1\0", 2), dialect);
    }
}

TEST(DataCheck, ReadsBackslashesAsTheDatabaseDoes) {
    for (const sql::Dialect& dialect : known) expectPasses(inText("C:\\x\\"), dialect);
    sql::SqlSyntax escaping = syntax(dialects::mariadb);
    escaping.backslashEscapes = true;
    EXPECT_EQ(refused(inText("x\\"), escaping), "x\\");
    EXPECT_EQ(refused(inText("x\\\\"), escaping), "");
    EXPECT_EQ(refused(inText("\\'' Or 1=1 -- "), escaping), "\\'' Or 1=1 -- ");
    const auto inEscapes = [](const std::string& data) {
        return "Select E'" + SqlText::ofData(data) + "', 'x'";
    };
    expectRefused(inEscapes("x\\"), "x\\", dialects::postgresql);
    expectRefused(inEscapes("\\'', pg_sleep(9) --"), "\\'', pg_sleep(9) --", dialects::postgresql);
    expectPasses(inEscapes("\\'"), dialects::postgresql);
}

TEST(DataCheck, RefusesATextThatSwallowsTheNext) {
    for (const sql::Dialect& dialect : all) {
        const SqlText sql = "Select a From t Where b = '" + SqlText::ofData("x'") + "' And c = '" +
                            SqlText::ofData(" Or 1=1 --") + "'";
        expectRefused(sql, "x'", dialect);
        const SqlText both =
            "Select '" + SqlText::ofData("x'") + "' And '" + SqlText::ofData("'y") + "'";
        expectRefused(both, "x'", dialect);
    }
}

TEST(DataCheck, LetsNumbersThroughOutsideOfQuotes) {
    for (const sql::Dialect& dialect : all)
        for (const char* data : {"0", "12", "-5", "+5", "1.5", ".5", "5.", "-1e5", "1.5E-10",
                                 "1e+300", "- 5", "999999999999999999999999"})
            expectPasses(bare(data), dialect);
}

TEST(DataCheck, RefusesAnythingElseOutsideOfQuotes) {
    for (const sql::Dialect& dialect : all)
        for (const std::string data : {"x",
                                       "1 Or 1=1",
                                       "1)--",
                                       "1;",
                                       "--5",
                                       "1e",
                                       "e5",
                                       ".",
                                       "-",
                                       "&HFF",
                                       "(5)",
                                       "0x41",
                                       "1,2",
                                       "'1'",
                                       "1 2",
                                       "5-",
                                       "1d5",
                                       "1/*x*/",
                                       "Null",
                                       "1_000",
                                       "$1",
                                       "\xc2\xa0"
                                       "5"})
            expectRefused(bare(data), data, dialect);
}

TEST(DataCheck, LetsAListOfCodesThroughOnlyWhereItIsOne) {
    for (const sql::Dialect& dialect : all) {
        for (const char* data : {"1", "-1", "1,2,3", "1, 2 ,-3", " 7,8 "})
            expectPasses(bare(data, Kind::codes), dialect);
        for (const std::string data : {"1,", ",1", "1,,2", "1.5", "1e5", "1;2", "1,x", "1,2)--"})
            expectRefused(bare(data, Kind::codes), data, dialect);
    }
}

TEST(DataCheck, RefusesANumberThatTurnsTheSignBeforeItIntoSomethingElse) {
    for (const sql::Dialect& dialect : known)
        expectRefused("Select 1 -" + SqlText::ofData("-5"), "-5", dialect);
    expectPasses("Select 1 - " + SqlText::ofData("-5"), dialects::mariadb);
    expectRefused("Select 1 %" + SqlText::ofData("-5"), "-5", dialects::postgresql);
    expectPasses("Select 1 =" + SqlText::ofData("-5"), dialects::postgresql);
}

TEST(DataCheck, RefusesDataBehindDashesThatADriverTakesForAComment) {
    expectRefused("Select 1 --'1', '" + SqlText::ofData("\n;Select 2") + "'", "\n;Select 2",
                  dialects::mariadb);
}

TEST(DataCheck, LetsDigitsBePartOfANameOrAComment) {
    for (const sql::Dialect& dialect : all) {
        expectPasses("Select a From t_" + SqlText::ofData("17") + " /* of company " +
                         SqlText::ofData("17") + " */",
                     dialect);
        expectRefused("Select a From t_" + SqlText::ofData("x"), "x", dialect);
        expectRefused("Select a /* " + SqlText::ofData("*/, b /*") + " */", "*/, b /*", dialect);
        expectRefused("Select a -- " + SqlText::ofData("x"), "x", dialect);
        expectRefused("Select \"" + SqlText::ofData("name") + "\"", "name",
                      dialect == dialects::mariadb ? dialects::sqlite : dialect);
    }
}

TEST(DataCheck, FollowsDollarQuotes) {
    const auto quoted = [](const std::string& data) {
        return "Select $\u00e1$" + SqlText::ofData(data) + "$\u00e1$, 1";
    };
    expectPasses(quoted("it's $$ fine"), dialects::postgresql);
    expectRefused(quoted("x$\u00e1$, pg_sleep(9), $\u00e1$"), "x$\u00e1$, pg_sleep(9), $\u00e1$",
                  dialects::postgresql);
}

TEST(DataCheck, KeepsToVersionCommentsOfAKnownServerOnly) {
    const SqlText sql = "Select /*!50000 1 */, '" + SqlText::ofData("x") + "'";
    expectPasses(sql, dialects::mariadb);
    sql::SqlSyntax unknown = syntax(dialects::mariadb);
    unknown.serverVersion = 0;
    EXPECT_EQ(refused(sql, unknown), "x");
}

TEST(DataCheck, IsStrictWhereTheDatabaseIsNotKnown) {
    for (const std::string data : {"a\"b", "a\\b", "a`b", "a\tb", "a\r", "a\nb",
                                   "a\x7f"
                                   "b",
                                   "\u02bc; Drop", "\uff07"})
        expectRefused(inText(data), data, dialects::other);
    expectPasses(inText("\u2019n l\u00e4ngerer Text \u2013 100 %"), dialects::other);
}

}  // namespace
}  // namespace catalogador
