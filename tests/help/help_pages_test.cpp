#include "adapters/help/help_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/services.h"
#include "runtime/error.h"

namespace catalogador::help {
namespace {

constexpr int spanish = 1;
constexpr int english = 2;
constexpr int portuguese = 3;

const HelpPages& pages() {
    static const HelpPages all(HELP_FOLDER);
    return all;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string refusal(const std::filesystem::path& folder) {
    try {
        const HelpPages none(folder);
    } catch (const RuntimeError& error) {
        return error.description();
    }
    return "";
}

/// A folder of its own, removed at the end.
class TemporaryFolder {
  public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() /
                ("help_pages_" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
                 "_" + ::testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name) << text;
    }

  private:
    std::filesystem::path path_;
};

}  // namespace

TEST(HelpPages, CommandThreeIsTheContentsInTheLanguageOfTheScreen) {
    EXPECT_EQ(pages().page(help_command::contents, 0, spanish).title, "Índice");
    EXPECT_EQ(pages().page(help_command::contents, 0, english).title, "Contents");
    EXPECT_EQ(pages().page("keys.html", portuguese).title, "As teclas");
}

TEST(HelpPages, ReadersOfAnUnknownLanguageGetSpanish) {
    for (const int language : {0, 4, 9, -1})
        EXPECT_EQ(pages().page("keys.html", language).title, "Las teclas") << language;
}

TEST(HelpPages, CommandFifteenIsThePageOfTheId) {
    const HelpPage page = pages().page(help_command::page, 10, spanish);
    EXPECT_EQ(page.name, "countries.html");
    EXPECT_EQ(page.title, "Países");
    EXPECT_TRUE(contains(page.html, "ISO 3166-1"));
}

TEST(HelpPages, AnIdWithoutAPageIsNamedAndLeadsToTheContents) {
    for (const int language : {spanish, english}) {
        const HelpPage page = pages().page(help_command::page, 31999, language);
        EXPECT_TRUE(contains(page.html, "31999"));
        EXPECT_FALSE(contains(page.html, "[id]"));
        EXPECT_TRUE(contains(page.html, "href=\"index.html\""));
    }
}

TEST(HelpPages, PagesShareOneLookAndCarryTheirTitleInIt) {
    const HelpPage page = pages().page("filter.html", english);
    EXPECT_TRUE(contains(page.html, ">Filter the list</font>"));
    EXPECT_FALSE(contains(page.html, "[title]"));
    EXPECT_FALSE(contains(page.html, "[body]"));
    EXPECT_EQ(page.html.find("<body"), page.html.rfind("<body"));
}

TEST(HelpPages, ALinkMayNameAPlaceInsideThePage) {
    EXPECT_EQ(pages().page("keys.html#editing", spanish).name, "keys.html");
}

TEST(HelpPages, ALinkToNoPageIsAnError) {
    EXPECT_THROW((void)pages().page("nowhere.html", spanish), RuntimeError);
    EXPECT_THROW((void)pages().page("", spanish), RuntimeError);
}

TEST(HelpPages, TopicsFollowTheContentsPageWithItsHeadings) {
    const std::vector<HelpTopic> topics = pages().topics(english);
    ASSERT_GT(topics.size(), 3U);
    EXPECT_EQ(topics[0].title, "Contents");
    EXPECT_EQ(topics[1].title, "Using the screen");
    EXPECT_EQ(topics[1].page, "");
    EXPECT_EQ(topics[2].title, "View and sort the list");
    EXPECT_EQ(topics[2].page, "browse.html");
}

TEST(HelpPages, AWrongFolderIsNamedInTheError) {
    const TemporaryFolder folder;
    EXPECT_TRUE(contains(refusal(folder.path() / "absent"), "absent"));
    EXPECT_TRUE(contains(refusal(folder.path()), "look.html"));
}

TEST(HelpPages, AMissingContentsPageIsAnErrorWhenItIsAskedFor) {
    const TemporaryFolder folder;
    folder.write("look.html", "<body>[title][body]</body>");
    folder.write("ids.txt", "7 seven.html\n");
    folder.write("es/seven.html", "<title> Siete </title><body>siete</body>");
    const HelpPages few(folder.path());
    EXPECT_EQ(few.page(help_command::page, 7, spanish).html, "<body>Sietesiete</body>");
    EXPECT_THROW((void)few.page(help_command::contents, 0, spanish), RuntimeError);
    EXPECT_THROW((void)few.page(help_command::page, 8, spanish), RuntimeError);
}

}  // namespace catalogador::help
