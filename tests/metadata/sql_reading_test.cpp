#include "adapters/checks/sql_reading.h"

#include <gtest/gtest.h>

#include "../sql/dialects.h"

namespace catalogador::checks {
namespace {

std::vector<std::int64_t> viewsOf(const std::string& sql) {
    return viewsOfFirstColumn(sql, dialects::sqlite.facts().syntax);
}

TEST(ViewsOfTheFirstColumn, AreThoseThatItsTableIsComparedWith) {
    using Views = std::vector<std::int64_t>;
    EXPECT_EQ(viewsOf("Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = 4"), Views{4});
    EXPECT_EQ(viewsOf("select [CTeCodigo] from t where 4=cteidtipovista"), Views{4});
    EXPECT_EQ(viewsOf("Select a.CTeCodigo, 1 From t a, t b Where a.CTeIDTipoVista = 4 And "
                      "b.CTeIDTipoVista = 5"),
              Views{4});
    EXPECT_EQ(viewsOf("Select b.CTeCodigo As Code, 1 From t a Join t b On b.CTeIDTipoVista = 5 "
                      "Where a.CTeIDTipoVista = 4"),
              Views{5});
    EXPECT_EQ(viewsOf("Select CTeCodigo From t Where CTeIDTipoVista In (4, 5)"), (Views{4, 5}));
    EXPECT_EQ(viewsOf("Select CTeCodigo From t /* CTeIDTipoVista = 4 */ Where x = "
                      "'CTeIDTipoVista = 5'"),
              Views{});
    EXPECT_EQ(viewsOf("Select Code From MyView"), Views{});
}

TEST(PlaceholdersOfAText, AreWordsInBrackets) {
    EXPECT_EQ(placeholdersOf("[prmID] = [prmID1] And x Like '[a-z]' And [ ] [] [x"),
              (std::vector<std::string>{"[prmID]", "[prmID1]"}));
}

TEST(QuotesRoundAPlaceholder, AreSeenEverywhere) {
    EXPECT_TRUE(insideQuotes("a = '[Texto]'", "[Texto]"));
    EXPECT_TRUE(insideQuotes("a = 'it''s [TEXTO]' And b = '[texto]'", "[Texto]"));
    EXPECT_FALSE(insideQuotes("a = '[Texto]' And b = [Texto]", "[Texto]"));
    EXPECT_TRUE(insideQuotes("a = 1", "[Texto]"));
}

TEST(Joins, LeaveRowsOutUnlessTheyKeepTheLeftOnes) {
    const sql::SqlSyntax syntax = dialects::sqlite.facts().syntax;
    EXPECT_TRUE(joinsRowsAway("Select 1 From a Join b On a.x = b.x", syntax));
    EXPECT_TRUE(joinsRowsAway("Select 1 From a Inner Join b On a.x = b.x", syntax));
    EXPECT_FALSE(joinsRowsAway("Select 1 From a Left Join b On a.x = b.x", syntax));
    EXPECT_FALSE(joinsRowsAway("Select 1 From a Left Outer Join b On a.x = b.x", syntax));
}

}  // namespace
}  // namespace catalogador::checks
