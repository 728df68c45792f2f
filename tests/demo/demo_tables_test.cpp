#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "adapters/demo/demo.h"
#include "runtime/error.h"

namespace catalogador::demo {
namespace {

using Row = std::vector<Variant>;

/// The rows of all entries for one table, in their order.
std::vector<Row> rowsOf(const std::vector<TableRows>& tables, const std::string& name) {
    std::vector<Row> rows;
    for (const TableRows& table : tables) {
        if (table.table == name) rows.insert(rows.end(), table.rows.begin(), table.rows.end());
    }
    return rows;
}

const std::vector<TableRows>& tables() {
    static const std::vector<TableRows> built = demoTables({.userName = "ana"});
    return built;
}

/// The record of a view with that short text.
Row record(int view, const std::string& shortText) {
    for (const Row& row : rowsOf(tables(), "genCodigoTexto")) {
        if (row.at(0) == Variant(view) && row.at(2) == Variant(shortText)) return row;
    }
    ADD_FAILURE() << "no record " << shortText;
    return Row(9);
}

TEST(DemoTables, HoldAllEntriesOfTheStandards) {
    std::map<std::int64_t, int> counts;
    for (const Row& row : rowsOf(tables(), "genCodigoTexto")) {
        ++counts[*row.at(0).as<std::int64_t>()];
    }
    // The standards grow from release to release of the package, they do not shrink by much.
    EXPECT_GE(counts[1], 245);
    EXPECT_GE(counts[2], 5000);
    EXPECT_GE(counts[3], 170);
    EXPECT_GE(counts[4], 7800);
    EXPECT_GE(counts[5], 180);
}

TEST(DemoTables, NameCountriesInSpanishUnderTheirNumber) {
    const Row spain = record(1, "ES");
    EXPECT_EQ(spain.at(1), Variant(724));
    EXPECT_EQ(spain.at(3), Variant("España"));
    EXPECT_EQ(spain.at(8), Variant(Date{2024, 3, 1, 9, 30, 0, 0}));
}

TEST(DemoTables, GiveSubdivisionsTheirCountryAndKind) {
    const Row cordoba = record(2, "AR-X");
    EXPECT_EQ(cordoba.at(3), Variant("Córdoba"));
    EXPECT_EQ(cordoba.at(4), Variant(32));
    EXPECT_EQ(cordoba.at(5), Variant(1));
    for (const Row& row : rowsOf(tables(), "genCodigoTexto")) {
        if (row.at(0) != Variant(2)) continue;
        EXPECT_FALSE(row.at(4).isNull()) << *row.at(2).as<std::string>();
    }
}

TEST(DemoTables, GiveCurrenciesTheirDecimalsAndCountry) {
    EXPECT_EQ(record(3, "ARS"), (Row{3, 32, "ARS", "Peso argentino", 2, 32, Null(), Null(),
                                     Date{2024, 3, 1, 9, 30, 0, 0}}));
    EXPECT_EQ(record(3, "CLP").at(4), Variant(0));
    EXPECT_EQ(record(3, "KWD").at(4), Variant(3));
    EXPECT_TRUE(record(3, "XAU").at(4).isNull());
    EXPECT_TRUE(record(3, "EUR").at(5).isNull());
}

TEST(DemoTables, ClassifyLanguagesAndMarkThoseWithATwoLetterCode) {
    const Row spanish = record(4, "spa");
    EXPECT_EQ(spanish.at(3), Variant("Español"));
    EXPECT_EQ(spanish.at(4), Variant(1));
    EXPECT_EQ(spanish.at(5), Variant(1));
    EXPECT_EQ(spanish.at(7), Variant(true));
    const Row sumerian = record(4, "sux");
    EXPECT_EQ(sumerian.at(5), Variant(3));
    EXPECT_EQ(sumerian.at(7), Variant(false));
}

TEST(DemoTables, NumberOnFromTheHighestCodeOfEachView) {
    std::map<std::int64_t, std::int64_t> highest;
    for (const Row& row : rowsOf(tables(), "genCodigoTexto")) {
        std::int64_t& last = highest[*row.at(0).as<std::int64_t>()];
        last = std::max(last, *row.at(1).as<std::int64_t>());
    }
    std::map<std::string, std::int64_t> sequences;
    for (const Row& row : rowsOf(tables(), "genNumeradores")) {
        sequences[*row.at(0).as<std::string>()] = *row.at(1).as<std::int64_t>();
    }
    for (const Row& view : rowsOf(tables(), "Catalogador")) {
        EXPECT_EQ(sequences.at(*view.at(2).as<std::string>()),
                  highest.at(*view.at(0).as<std::int64_t>()));
    }
    EXPECT_EQ(sequences.at("Paises"), 894);
}

TEST(DemoTables, UseNoCodeTwiceInAView) {
    std::map<std::pair<std::int64_t, std::int64_t>, int> keys;
    for (const Row& row : rowsOf(tables(), "genCodigoTexto")) {
        EXPECT_EQ(++keys[std::pair(*row.at(0).as<std::int64_t>(), *row.at(1).as<std::int64_t>())],
                  1);
    }
}

TEST(DemoTables, MakeTheGivenPersonUserOne) {
    const auto users = rowsOf(tables(), "accUsuarios");
    EXPECT_NE(std::find(users.begin(), users.end(), Row{1, "ana"}), users.end());
    EXPECT_NE(std::find(users.begin(), users.end(), Row{2, "invitado"}), users.end());
    EXPECT_EQ(rowsOf(demoTables({}), "accUsuarios").size(), 1U);
}

TEST(DemoTables, CarryRulesThatBlockAskAndKeepSilent) {
    int blocking = 0;
    int asking = 0;
    int silent = 0;
    for (const Row& row : rowsOf(tables(), "genForaneas")) {
        const bool question = !row.at(2).as<std::string>()->empty();
        const bool followUp = !row.at(3).as<std::string>()->empty();
        blocking += question && !followUp ? 1 : 0;
        asking += question && followUp ? 1 : 0;
        silent += !question && followUp ? 1 : 0;
    }
    EXPECT_EQ(blocking, 1);
    EXPECT_EQ(asking, 2);
    EXPECT_EQ(silent, 1);
}

TEST(DemoTables, TellWhichPackageIsMissing) {
    try {
        (void)demoTables({.isoCodesFolder = "/nowhere"});
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.description().find("iso-codes"), std::string::npos);
        EXPECT_NE(error.description().find("/nowhere/iso_3166-1.json"), std::string::npos);
    }
}

TEST(DemoTables, KeepTheNamesOfTheStandardWithoutTranslations) {
    const auto plain = demoTables({.translationsFolder = "/nowhere"});
    const auto rows = rowsOf(plain, "genCodigoTexto");
    const auto spain = std::find_if(rows.begin(), rows.end(), [](const Row& row) {
        return row.at(0) == Variant(1) && row.at(1) == Variant(724);
    });
    ASSERT_NE(spain, rows.end());
    EXPECT_EQ(spain->at(3), Variant("Spain"));
}

TEST(DemoTables, NameTheFileThatIsDamaged) {
    const std::filesystem::path folder =
        std::filesystem::path(testing::TempDir()) / "damaged-iso-codes";
    std::filesystem::create_directories(folder);
    for (const char* content : {"{\"3166-1\": [{\"alpha_2\": \"ES\"}]}", "{\"3166-1\": [", "[]"}) {
        std::ofstream(folder / "iso_3166-1.json") << content;
        try {
            (void)demoTables({.isoCodesFolder = folder.string()});
            ADD_FAILURE() << "no error for " << content;
        } catch (const RuntimeError& error) {
            EXPECT_NE(error.description().find("iso_3166-1.json"), std::string::npos);
        }
    }
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace catalogador::demo
