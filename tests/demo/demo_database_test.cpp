#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "adapters/demo/demo.h"
#include "adapters/odbc/odbc_connection.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::demo {
namespace {

using Row = std::vector<Variant>;

/// A demonstration database in a file of its own, written once for all tests of the suite.
class DemoDatabase : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        file_ =
            std::filesystem::path(testing::TempDir()) /
            ("demo-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()) +
             ".db");
        connection_ = odbc::OdbcConnection::open(
            odbc::OdbcConnection::sqliteConnectionString(file_.string()));
        const auto start = std::chrono::steady_clock::now();
        writeDemo(*connection_, {.userName = "ana"});
        duration_ = std::chrono::steady_clock::now() - start;
    }

    static void TearDownTestSuite() {
        connection_.reset();
        std::filesystem::remove(file_);
    }

    static std::vector<Row> rows(const std::string& sql) {
        const auto resultset = connection_->OpenResultset(sql);
        std::vector<Row> result;
        for (; !resultset->atEnd(); resultset->MoveNext()) {
            Row& row = result.emplace_back();
            for (int i = 0; i < resultset->columnCount(); ++i) row.push_back(resultset->value(i));
        }
        resultset->Close();
        return result;
    }

    static std::size_t count(int view) {
        return rows("Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = " +
                    decimalText(view))
            .size();
    }

    /// A view's listing for a company, with the user's own list of codes.
    static std::string listing(int view, const std::string& company = "1",
                               const std::string& list = "-1") {
        const Variant sql =
            rows("Select ABMConsulta From Catalogador Where ABMIDFormVista = " + decimalText(view))
                .at(0)
                .at(0);
        const std::string text =
            replaceText(*sql.as<std::string>(), "[prmIdEmpresa]", company, Compare::text);
        return replaceText(text, "[prm99]", list, Compare::text);
    }

    static inline std::filesystem::path file_;
    static inline std::unique_ptr<odbc::OdbcConnection> connection_;
    static inline std::chrono::steady_clock::duration duration_{};
};

TEST_F(DemoDatabase, IsWrittenInSecondsNotMinutes) {
    // Row by row it would take minutes; the margin is for a busy machine.
    EXPECT_LT(duration_, std::chrono::seconds(10));
    EXPECT_GT(rows("Select CTeCodigo From genCodigoTexto").size(), 13000U);
}

TEST_F(DemoDatabase, ListsEveryRecordOfEveryViewButThoseOfOtherCompanies) {
    for (const int view : {1, 2, 3, 4, 5, 10, 16, 21, 22}) {
        const auto listed = rows(listing(view));
        EXPECT_EQ(listed.size(), count(view)) << view;
        EXPECT_FALSE(listed.empty()) << view;
    }
    EXPECT_EQ(rows(listing(20, "1")).size() + rows(listing(20, "2")).size(), count(20));
    EXPECT_EQ(rows(listing(20, "3")).size(), 0U);
}

TEST_F(DemoDatabase, ListsOneColumnMoreThanTheGridShows) {
    for (const Row& view : rows("Select ABMIDFormVista, ABMColumnasNombre From Catalogador")) {
        const auto resultset =
            connection_->OpenResultset(listing(static_cast<int>(*view.at(0).as<std::int64_t>())));
        EXPECT_EQ(static_cast<std::size_t>(resultset->columnCount()),
                  1 + splitText(*view.at(1).as<std::string>(), "|").size());
        resultset->Close();
    }
}

TEST_F(DemoDatabase, HasBitColumnsWhereTheGridShowsCheckBoxes) {
    for (const auto& [view, column] : {std::pair(4, 5), {10, 5}, {16, 5}, {21, 3}, {22, 6}}) {
        const auto resultset = connection_->OpenResultset(listing(view));
        EXPECT_EQ(resultset->column(column).type, bitColumnType) << view;
        resultset->Close();
    }
}

TEST_F(DemoDatabase, ListsTheUsersClassificationsFirst) {
    const auto listed = rows(listing(10, "1", "8,4"));
    EXPECT_EQ(listed.at(0).at(0), Variant(4));
    EXPECT_EQ(listed.at(1).at(0), Variant(8));
    EXPECT_EQ(listed.size(), count(10));
}

TEST_F(DemoDatabase, ShowsTheCountryAndTheKindOfASubdivision) {
    const auto found = rows(listing(2) + " And s.CTeTextoCorto = 'AR-X'");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.at(0).at(2), Variant("Córdoba"));
    EXPECT_EQ(found.at(0).at(3), Variant("Argentina"));
    EXPECT_EQ(found.at(0).at(4), Variant("Provincia"));
}

TEST_F(DemoDatabase, FillsTheCombosOfCountriesInOrderOfName) {
    const auto sources = rows(
        "Select ACoDatosCombo From CatalogadorControles Where ACoIDFormVista = 2 And "
        "ACoKeyControl = 'Valor1'");
    const auto countries = rows(*sources.at(0).at(0).as<std::string>());
    EXPECT_EQ(countries.size(), count(1));
    EXPECT_EQ(countries.at(0), (Row{4, "Afganistán"}));
}

TEST_F(DemoDatabase, FindsADuplicateScriptButNotTheRecordItself) {
    const Variant rule =
        rows("Select ABMSQLValidarDuplicados From Catalogador Where ABMIDFormVista = 5")
            .at(0)
            .at(0);
    const std::string named =
        replaceText(*rule.as<std::string>(), "[TextoLargo]", "árabe", Compare::text);
    const auto other = rows(replaceText(named, "[Codigo]", "0", Compare::text));
    ASSERT_EQ(other.size(), 1U);
    const std::string own = decimalText(*other.at(0).at(0).as<std::int64_t>());
    EXPECT_TRUE(rows(replaceText(named, "[Codigo]", own, Compare::text)).empty());
}

TEST_F(DemoDatabase, KeepsACountryThatHasSubdivisions) {
    const auto rules = rows(
        "Select ForSQLForanea From genForaneas Where ForTablaAControlar = 'Paises' Order By "
        "ForOrdenSQL");
    ASSERT_EQ(rules.size(), 2U);
    const std::string& blocking = *rules.at(0).at(0).as<std::string>();
    EXPECT_FALSE(rows(replaceText(blocking, "[prmID]", "724", Compare::binary)).empty());
    // Aruba has none, but a currency.
    EXPECT_TRUE(rows(replaceText(blocking, "[prmID]", "533", Compare::binary)).empty());
    const std::string& asking = *rules.at(1).at(0).as<std::string>();
    EXPECT_EQ(rows(replaceText(asking, "[prmID]", "533", Compare::binary)).size(), 1U);
}

TEST_F(DemoDatabase, IsNotWrittenTwice) {
    EXPECT_THROW(writeDemo(*connection_, {.userName = "ana"}), RuntimeError);
    EXPECT_EQ(count(1), rows(listing(1)).size());
}

TEST_F(DemoDatabase, StaysUntouchedWhenTheCodeListsAreMissing) {
    const auto file = std::filesystem::path(file_.string() + ".empty");
    const auto connection =
        odbc::OdbcConnection::open(odbc::OdbcConnection::sqliteConnectionString(file.string()));
    EXPECT_THROW(writeDemo(*connection, {.isoCodesFolder = "/nowhere"}), RuntimeError);
    const auto tables = connection->OpenResultset("Select name From sqlite_master");
    EXPECT_TRUE(tables->atEnd());
    tables->Close();
    std::filesystem::remove(file);
}

}  // namespace
}  // namespace catalogador::demo
