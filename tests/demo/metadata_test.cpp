#include "adapters/demo/metadata.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <set>

#include "runtime/error.h"

namespace catalogador::demo {
namespace {

using nlohmann::json;

const json twoKinds = json::parse(R"({"lists": {"kinds": [
    {"code": 1, "name": "Provincia", "iso": ["Province", "Autonomous province"]},
    {"code": 99, "name": "Otro d'aquí"}]}})");

TEST(Metadata, FindsTheCodeOfAStandardsName) {
    EXPECT_EQ(listCode(twoKinds, "kinds", "Province"), 1);
    EXPECT_EQ(listCode(twoKinds, "kinds", "Autonomous province"), 1);
    EXPECT_EQ(listCode(twoKinds, "kinds", "Ward"), 99);
}

TEST(Metadata, WritesAListAsComboSource) {
    EXPECT_EQ(listItems(twoKinds, "kinds"), "1,Provincia;99,Otro d'aquí");
}

TEST(Metadata, ReplacesListsInAQueryByTheirTexts) {
    EXPECT_EQ(expandLists(twoKinds, "Select {{kinds s.A}} As K, {{kinds B}} From T"),
              "Select Case s.A When 1 Then 'Provincia' When 99 Then 'Otro d''aquí' End As K, "
              "Case B When 1 Then 'Provincia' When 99 Then 'Otro d''aquí' End From T");
    EXPECT_EQ(expandLists(twoKinds, "Select A From T"), "Select A From T");
}

TEST(Metadata, RefusesAListThatDoesNotExistOrDoesNotEnd) {
    EXPECT_THROW((void)expandLists(twoKinds, "Select {{colours A}} From T"), RuntimeError);
    EXPECT_THROW((void)expandLists(twoKinds, "Select {{kinds A From T"), RuntimeError);
}

TEST(DemoViews, ShowOneGridColumnForEachResultColumnAfterTheCode) {
    for (const json& view : demoMetadata().at("views")) {
        const std::string query = view.at("query");
        const std::string selected = query.substr(0, query.find(" From "));
        const auto commas = std::count(selected.begin(), selected.end(), ',');
        EXPECT_EQ(static_cast<std::size_t>(commas), view.at("columns").size()) << view.at("name");
    }
}

TEST(DemoViews, AreWideEnoughForTheirColumns) {
    for (const json& view : demoMetadata().at("views")) {
        int sum = 0;
        for (const json& column : view.at("columns")) sum += column.at(1).get<int>();
        EXPECT_GE(view.at("width").get<int>(), sum + 500) << view.at("name");
    }
}

TEST(DemoViews, ShowEveryKindOfField) {
    std::set<std::string> keys;
    std::set<int> kinds;
    for (const json& view : demoMetadata().at("views")) {
        for (const json& field : view.at("fields")) {
            keys.insert(field.at("key").get<std::string>());
            if (field.contains("kind")) kinds.insert(field.at("kind").get<int>());
        }
    }
    EXPECT_EQ(keys, (std::set<std::string>{"TextoCorto", "TextoLargo", "Valor1", "Valor2", "Valor3",
                                           "ValorSiNo"}));
    EXPECT_EQ(kinds, (std::set<int>{1, 2, 3, 4}));
}

TEST(DemoViews, HaveNoMnemonicTwice) {
    for (const json& view : demoMetadata().at("views")) {
        std::set<std::string> letters;
        for (const json& field : view.at("fields")) {
            const std::string caption = field.at("caption");
            const auto mark = caption.find('&');
            ASSERT_NE(mark, std::string::npos) << caption;
            EXPECT_TRUE(letters.insert(caption.substr(mark + 1, 1)).second)
                << view.at("name") << " " << caption;
        }
    }
}

TEST(DemoViews, OpenViewsThatExistWithF2) {
    std::set<std::string> ids;
    std::set<std::string> opened;
    for (const json& view : demoMetadata().at("views")) {
        ids.insert(view.at("id").dump());
        for (const json& field : view.at("fields")) {
            if (field.contains("f2")) opened.insert(field.at("f2").get<std::string>());
        }
    }
    EXPECT_FALSE(opened.empty());
    for (const std::string& id : opened) EXPECT_TRUE(ids.contains(id)) << id;
}

TEST(DemoViews, GiveTheListsOfTheGridAsTextsOfEqualLength) {
    const TableRows views = viewRows(demoMetadata()).front();
    const auto bars = [](const Variant& value) {
        const std::string& text = *value.as<std::string>();
        return std::count(text.begin(), text.end(), '|');
    };
    ASSERT_EQ(views.rows.size(), 10U);
    for (const auto& row : views.rows) {
        EXPECT_EQ(bars(row.at(4)), bars(row.at(5)));
        EXPECT_EQ(bars(row.at(4)), bars(row.at(6)));
    }
    EXPECT_EQ(views.rows.front().at(4), Variant("Código|País"));
    EXPECT_EQ(views.rows.front().at(5), Variant("1000|6000"));
    EXPECT_EQ(views.rows.front().at(6), Variant("4|1"));
}

}  // namespace
}  // namespace catalogador::demo
