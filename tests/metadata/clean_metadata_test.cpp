#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <sstream>

#include "adapters/demo/demo.h"
#include "metadata_database.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

class CleanMetadata : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        kind_ = GetParam();
        kind_.front() = static_cast<char>(kind_.front() - 'A' + 'a');
    }
    std::string kind_;
};
INSTANTIATE_TEST_SUITE_P(, CleanMetadata, testing::Values("Sqlite", "Postgresql", "Mariadb"),
                         [](const auto& given) { return given.param; });

void expectNothing(const std::vector<checks::Finding>& findings) {
    for (const auto& finding : findings)
        ADD_FAILURE() << test::textOf(finding) << ": " << finding.message;
}

TEST_P(CleanMetadata, OfTheDemonstrationGivesNoFinding) {
    const auto database = test::MetadataDatabase::createEmpty(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    demo::DemoOptions options;
    options.userName = "ana";
    options.dialect = &database->dialect();
    demo::writeDemo(database->connection(), options);
    checks::CheckOptions wanted;
    wanted.helpPages = std::set<std::int64_t>{10, 11, 12, 13, 14, 15, 16};
    wanted.textWidth = [](std::string_view text) {
        return static_cast<int>(lengthInCharacters(text)) * 105;
    };
    const auto result = checks::checkMetadata(database->checked(), wanted);
    EXPECT_EQ(result.views, 10);
    expectNothing(result.findings);
}

/// The statements of the example on the page.
std::vector<std::string> exampleOfThePage() {
    std::ifstream file(CATALOGADOR_DOCS "/describing-a-view.md");
    std::stringstream text;
    text << file.rdbuf();
    const std::string page = text.str();
    const std::size_t start = page.find("```sql\n") + 7;
    const std::string example = page.substr(start, page.find("```", start) - start);
    std::vector<std::string> statements = splitText(example, ";\n");
    std::erase_if(statements, [](const std::string& sql) { return trim(sql).size() < 2; });
    return statements;
}

TEST_P(CleanMetadata, OfTheExampleOnThePageGivesNoFinding) {
    const auto database = test::MetadataDatabase::createEmpty(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    database->run(schema::schemaStatementList(database->dialect()));
    const auto statements = exampleOfThePage();
    ASSERT_EQ(statements.size(), 5U);
    database->run(statements);
    database->run("Insert Into accUsuarios (UsuID, UsuNombre) Values (1, 'ana')");
    expectNothing(database->findings());
}

/// The clean view 41 under another number, with everything that belongs to it and more records.
std::vector<std::string> anotherView(int number) {
    std::vector<std::string> statements;
    const std::string text = decimalText(number);
    for (const std::string& sql : test::cleanViews()) {
        const bool ofView = containsText(sql, "(41,", Compare::binary) ||
                            containsText(sql, "('Units'", Compare::binary);
        if (!ofView) continue;
        std::string copy = replaceText(sql, "41", text, Compare::binary);
        copy = replaceText(copy, "'Units'", "'Units" + text + "'", Compare::binary);
        statements.push_back(replaceText(copy, ", 3)", ", 100)", Compare::binary));
    }
    for (int code = 4; code <= 40; ++code)
        statements.push_back(
            "Insert Into genCodigoTexto (CTeIDTipoVista, CTeCodigo, "
            "CTeTextoCorto, CTeTextoLargo, CTeValor2) Values (" +
            text + ", " + decimalText(code) + ", 'u', 'unit', 3)");
    return statements;
}

TEST_P(CleanMetadata, OfThreeHundredViewsGivesNoFinding) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    std::vector<std::string> statements;
    for (int view = 1001; view <= 1297; ++view)
        for (std::string& sql : anotherView(view)) statements.push_back(std::move(sql));
    database->run(statements);
    const auto start = std::chrono::steady_clock::now();
    const auto findings = database->findings();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::cout << "300 views checked in " << time.count() << " s\n";
    expectNothing(findings);
}

}  // namespace
}  // namespace catalogador
