// What the pages say, held against each other and against the texts of the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "adapters/help/help_pages.h"
#include "adapters/languages/po_file.h"
#include "runtime/text.h"

namespace catalogador::help {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t largestPicture = 120 * 1024;

struct Language {
    int number;
    const char* folder;
    const char* catalogue;
};

class HelpTexts : public ::testing::TestWithParam<Language> {
  protected:
    [[nodiscard]] static fs::path folder() { return fs::path(HELP_FOLDER) / GetParam().folder; }
    [[nodiscard]] static std::map<std::string, std::string> catalogue() {
        return languages::readPoFile(std::string(LANGUAGES_FOLDER) + "/" + GetParam().catalogue +
                                     ".po");
    }
};

std::string textOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::set<std::string> namesIn(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.insert(entry.path().filename().string());
    return names;
}

/// Everything that stands between `open` and the next `close`.
std::vector<std::string> allBetween(const std::string& text, const std::string& open,
                                    const std::string& close) {
    std::vector<std::string> found;
    for (std::size_t at = text.find(open); at != std::string::npos; at = text.find(open, at)) {
        at += open.size();
        const std::size_t end = text.find(close, at);
        if (end == std::string::npos) break;
        found.push_back(text.substr(at, end - at));
    }
    return found;
}

std::set<std::string> marksOf(const std::string& html) {
    std::set<std::string> marks;
    for (const std::string& tag : allBetween(html, "<", ">"))
        marks.insert(tag.substr(0, tag.find_first_of(" >")));
    return marks;
}

}  // namespace

TEST(HelpFolders, EveryPageExistsInEveryLanguage) {
    const fs::path help(HELP_FOLDER);
    EXPECT_EQ(namesIn(help / "es"), namesIn(help / "en"));
    EXPECT_EQ(namesIn(help / "es"), namesIn(help / "pt"));
    EXPECT_FALSE(namesIn(help / "es").empty());
}

TEST(HelpFolders, EveryTopicOfTheScreenHasAPage) {
    const std::set<std::string> names = namesIn(fs::path(HELP_FOLDER) / "es");
    for (const char* topic :
         {"index", "browse", "filter", "edit", "keys", "lookup", "delete", "export", "print"})
        EXPECT_TRUE(names.contains(std::string(topic) + ".html")) << topic;
}

TEST(HelpFolders, EveryHelpIdOfTheDemonstrationHasAPage) {
    const HelpPages pages(HELP_FOLDER);
    std::set<std::string> used;
    for (const std::string& id : allBetween(textOf(DEMO_VIEWS), "\"help\":", ","))
        used.insert(std::string(trim(id)));
    std::set<std::string> known;
    for (const auto& [id, page] : pages.ids()) known.insert(decimalText(id));
    EXPECT_EQ(used, known);
}

TEST(HelpFolders, PicturesAreAllUsedAndNoneIsHeavy) {
    const fs::path help(HELP_FOLDER);
    std::set<std::string> used;
    for (const char* language : {"es", "en", "pt"})
        for (const std::string& name : namesIn(help / language))
            for (const std::string& image :
                 allBetween(textOf(help / language / name), "../images/", "\""))
                used.insert(image);
    EXPECT_EQ(used, namesIn(help / "images"));
    for (const std::string& name : namesIn(help / "images"))
        EXPECT_LT(fs::file_size(help / "images" / name), largestPicture) << name;
}

TEST_P(HelpTexts, LinksAndPicturesLeadToFiles) {
    for (const std::string& name : namesIn(folder())) {
        const std::string html = textOf(folder() / name);
        for (const char* kind : {"href=\"", "src=\""})
            for (const std::string& target : allBetween(html, kind, "\""))
                EXPECT_TRUE(fs::is_regular_file(folder() / target)) << name << ": " << target;
    }
}

TEST_P(HelpTexts, EveryPageButTheUnknownOneIsInTheContents) {
    std::set<std::string> listed;
    for (const HelpTopic& topic : HelpPages(HELP_FOLDER).topics(GetParam().number))
        if (!topic.page.empty()) listed.insert(topic.page);
    listed.insert("unknown.html");
    EXPECT_EQ(listed, namesIn(folder()));
}

TEST_P(HelpTexts, TitlesInTheContentsAreThoseOfThePages) {
    const HelpPages pages(HELP_FOLDER);
    for (const HelpTopic& topic : pages.topics(GetParam().number)) {
        if (topic.page.empty()) continue;
        EXPECT_EQ(pages.page(topic.page, GetParam().number).title, topic.title);
    }
}

TEST_P(HelpTexts, WhatIsBoldIsATextOfTheProgram) {
    std::set<std::string> texts;
    for (const auto& [number, text] : catalogue())
        texts.insert(replaceText(text, "&", "", Compare::binary));
    for (const std::string& name : namesIn(folder()))
        for (const std::string& bold : allBetween(textOf(folder() / name), "<b>", "</b>"))
            EXPECT_TRUE(texts.contains(bold)) << name << ": " << bold;
}

TEST_P(HelpTexts, AcceleratorsAreThoseOfTheCatalogueBesideTheirAction) {
    const std::pair<const char*, const char*> actions[] = {
        {"1208", "1246"}, {"1212", "1247"}, {"1215", "1248"}, {"1218", "1249"}, {"1221", "1250"}};
    const auto texts = catalogue();
    const std::string keys = textOf(folder() / "keys.html");
    std::set<std::string> known;
    for (const auto& [caption, letter] : actions) {
        known.insert(texts.at(letter));
        const std::string row = "<kbd>Ctrl+" + texts.at(letter) +
                                "</kbd></td><td valign=\"top\" width=\"58%\"><b>" +
                                replaceText(texts.at(caption), "&", "", Compare::binary) + "</b>";
        EXPECT_NE(replaceText(keys, " width=\"42%\"", "", Compare::binary).find(row),
                  std::string::npos)
            << row;
    }
    // These are the same in every language, where its letters leave them free.
    for (const char* key : {"F", "P", "Mayús+S", "Shift+S"}) known.insert(key);
    // Taking back what was typed is the text boxes' own key; the others are the list's.
    for (const char* key : {"Z", "C", "Mayús+C", "Shift+C", "Inicio", "Fin", "Home", "End"})
        known.insert(key);
    for (const std::string& name : namesIn(folder()))
        for (const std::string& letter :
             allBetween(textOf(folder() / name), "<kbd>Ctrl+", "</kbd>"))
            EXPECT_TRUE(known.contains(letter)) << name << ": Ctrl+" << letter;
}

TEST_P(HelpTexts, TheKeyListHasTheToolbarsCommandsAndTheKeysThatNoCaptionTells) {
    const auto texts = catalogue();
    const std::string keys = textOf(folder() / "keys.html");
    const bool spanish = GetParam().number == 1;
    const std::pair<std::string, const char*> commands[] = {
        {"Ctrl+F", "1232"},
        {"Ctrl+P", "1241"},
        {spanish ? "Ctrl+Mayús+S" : "Ctrl+Shift+S", "1237"}};
    for (const auto& [key, caption] : commands) {
        const std::string name = replaceText(texts.at(caption), "&", "", Compare::binary);
        const std::size_t row = keys.find("<kbd>" + key + "</kbd>");
        ASSERT_NE(row, std::string::npos) << key;
        const std::string rest = keys.substr(row, keys.find("</tr>", row) - row);
        EXPECT_NE(rest.find("<b>" + name + "</b>"), std::string::npos) << rest;
    }
    for (const std::string key :
         {"F1", "F2", "F4", "F5", "F6", "F10", "Esc", "A", "Z", "Ctrl+C", "Ctrl+Z", "Alt+↓",
          spanish ? "Ctrl+Mayús+C" : "Ctrl+Shift+C", spanish ? "Mayús+F10" : "Shift+F10"})
        EXPECT_NE(keys.find("<kbd>" + key + "</kbd>"), std::string::npos) << key;
}

TEST_P(HelpTexts, EveryPageHasTheKeysPicturesAndLinksOfTheSpanishOne) {
    const fs::path spanish = fs::path(HELP_FOLDER) / "es";
    for (const std::string& name : namesIn(folder()))
        for (const char* mark : {"<tr", "<li", "<h3", "<img", "<a href"})
            EXPECT_EQ(allBetween(textOf(folder() / name), mark, ">").size(),
                      allBetween(textOf(spanish / name), mark, ">").size())
                << name << ": " << mark;
}

TEST_P(HelpTexts, PagesUseOnlyMarksThatTheViewerKnows) {
    const std::set<std::string> known{
        "!DOCTYPE", "html", "head", "meta",  "title", "body",  "p",     "h3",     "ul",
        "ol",       "li",   "a",    "img",   "b",     "i",     "br",    "table",  "tr",
        "th",       "td",   "font", "kbd",   "code",  "/html", "/head", "/title", "/body",
        "/p",       "/h3",  "/ul",  "/ol",   "/li",   "/a",    "/b",    "/i",     "/table",
        "/tr",      "/th",  "/td",  "/font", "/kbd",  "/code"};
    for (const std::string& name : namesIn(folder()))
        for (const std::string& mark : marksOf(textOf(folder() / name)))
            EXPECT_TRUE(known.contains(mark)) << name << ": " << mark;
}

INSTANTIATE_TEST_SUITE_P(Languages, HelpTexts,
                         ::testing::Values(Language{1, "es", "LNG_QTX_001"},
                                           Language{2, "en", "LNG_QTX_002"},
                                           Language{3, "pt", "LNG_QTX_003"}),
                         [](const auto& tested) { return std::string(tested.param.folder); });

}  // namespace catalogador::help
