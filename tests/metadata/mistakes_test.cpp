#include "mistakes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "metadata_database.h"

namespace catalogador {
namespace {

using checks::Finding;

std::vector<std::string> textsOf(const std::vector<Finding>& findings) {
    std::vector<std::string> texts;
    for (const Finding& finding : findings) texts.push_back(test::textOf(finding));
    return texts;
}

std::string all(const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings)
        text += "\n" + test::textOf(finding) + ": " + finding.message;
    return text;
}

/// Makes one mistake in clean views and looks at what is found.
void expectFound(test::MetadataDatabase& database, const test::Mistake& mistake) {
    SCOPED_TRACE(mistake.name);
    database.run(mistake.statements);
    auto findings = database.findings();
    // A view that some mistakes need has the same mistake.
    std::erase_if(findings, [](const Finding& finding) { return finding.place.view == 44; });
    const auto texts = textsOf(findings);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), mistake.finding), 1)
        << mistake.finding << " of" << all(findings);
    EXPECT_EQ(texts.size(), 1U) << all(findings);
    EXPECT_TRUE(database.findings({42}).empty()) << all(findings);
}

class MistakeIsFound : public testing::TestWithParam<test::Mistake> {};
INSTANTIATE_TEST_SUITE_P(, MistakeIsFound, testing::ValuesIn(test::mistakes()),
                         [](const auto& given) { return given.param.name; });

TEST_P(MistakeIsFound, AndNothingElseIs) {
    expectFound(*test::MetadataDatabase::create("sqlite"), GetParam());
}

class Servers : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(, Servers, testing::Values("Postgresql", "Mariadb"),
                         [](const auto& given) { return given.param; });

TEST_P(Servers, EveryMistakeIsFoundAndNothingElse) {
    std::string kind = GetParam();
    kind.front() = static_cast<char>(kind.front() - 'A' + 'a');
    const auto database = test::MetadataDatabase::create(kind);
    if (!database) GTEST_SKIP() << "There is no server";
    EXPECT_TRUE(database->findings().empty()) << all(database->findings());
    for (const test::Mistake& mistake : test::mistakes()) {
        if (mistake.sqliteOnly) continue;
        expectFound(*database, mistake);
        database->fill();
    }
}

TEST(Mistakes, CoverEveryFindingAboutViews) {
    std::set<std::string> covered;
    for (const test::Mistake& mistake : test::mistakes())
        covered.insert(mistake.finding.substr(0, mistake.finding.find(' ')));
    // These are about tables, or need a call or a table that clean views do not have.
    const std::set<int> elsewhere{1, 2, 3, 4, 5, 6, 10, 11, 12};
    for (const checks::FindingKind& kind : checks::findingKinds())
        EXPECT_TRUE(elsewhere.contains(kind.number) || covered.contains(checks::idOf(kind.number)))
            << kind.number;
    EXPECT_GE(test::mistakes().size(), 100U);
}

TEST(Mistakes, TellOtherCapitalsAndWhatIsMeant) {
    const auto database = test::MetadataDatabase::create("sqlite");
    database->run(
        "Update CatalogadorControles Set ACoKeyControl = 'valorsino' Where ACoKeyControl "
        "= 'ValorSiNo'");
    database->run("Update genNumeradores Set NumNombre = 'UNITS' Where NumNombre = 'Units'");
    const auto findings = database->findings({41});
    ASSERT_EQ(findings.size(), 2U) << all(findings);
    EXPECT_EQ(findings[0].message, "'valorsino' is no field; it is spelled ValorSiNo");
    EXPECT_EQ(findings[1].message, "There is no sequence 'Units'; there is one named 'UNITS'");
    for (const Finding& finding : findings) {
        ASSERT_FALSE(finding.fix.empty());
        database->run(finding.fix);
    }
    EXPECT_TRUE(database->findings({41}).empty());
}

TEST(Mistakes, AreToldInTheDatabasesOwnWords) {
    const auto database = test::MetadataDatabase::create("sqlite");
    database->run(
        "Update Catalogador Set ABMConsulta = 'Select CTeCodigo, Colour From "
        "genCodigoTexto Where CTeIDTipoVista = 42' Where ABMIDFormVista = 42");
    const auto findings = database->findings();
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].message.find("no such column: Colour"), std::string::npos)
        << findings[0].message;
}

TEST(Mistakes, OfAViewThatDoesNotExistAreToldWhenItIsAskedFor) {
    const auto database = test::MetadataDatabase::create("sqlite");
    const auto findings = database->findings({99});
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(test::textOf(findings[0]), "CAT010 error 99 Catalogador. ");
}

}  // namespace
}  // namespace catalogador
