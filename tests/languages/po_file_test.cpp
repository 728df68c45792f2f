#include "adapters/languages/po_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "adapters/languages/catalogue_languages.h"
#include "platform/language.h"
#include "runtime/error.h"

namespace catalogador::languages {
namespace {

using Texts = std::map<std::string, std::string>;

class PoFileTest : public testing::Test {
  protected:
    PoFileTest()
        : folder_(std::filesystem::temp_directory_path() /
                  ("po_file_test-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(folder_);
    }
    ~PoFileTest() override { std::filesystem::remove_all(folder_); }

    [[nodiscard]] std::string path() const { return (folder_ / "LNG_QTX_001.po").string(); }
    Texts read(const std::string& content) {
        std::ofstream(path(), std::ios::binary) << content;
        return readPoFile(path());
    }
    std::string failureOf(const std::string& content) {
        try {
            read(content);
        } catch (const RuntimeError& error) {
            return error.description();
        }
        return "";
    }

    std::filesystem::path folder_;
};

TEST_F(PoFileTest, GivesTheTextOfEachContext) {
    EXPECT_EQ(read("msgid \"\"\nmsgstr \"Language: es\\n\"\n\n"
                   "msgctxt \"1100\"\nmsgid \"Save?\"\nmsgstr \"¿Grabar?\"\n\n"
                   "msgctxt \"1101\"\nmsgid \"Missing\"\nmsgstr \"Faltan datos\"\n"),
              (Texts{{"1100", "¿Grabar?"}, {"1101", "Faltan datos"}}));
}

TEST_F(PoFileTest, JoinsTheLinesOfATextAndResolvesEscapes) {
    EXPECT_EQ(
        read("msgctxt \"1\"\nmsgid \"x\"\nmsgstr \"\"\n\"uno \"\n\"\\\"dos\\\"\\t\\\\\\n\"\n"),
        (Texts{{"1", "uno \"dos\"\t\\\n"}}));
}

TEST_F(PoFileTest, TakesEntriesWithoutBlankLinesBetweenThemAndCarriageReturns) {
    EXPECT_EQ(read("msgctxt \"1\"\r\nmsgid \"a\"\r\nmsgstr \"A\"\r\nmsgctxt \"2\"\r\nmsgid "
                   "\"b\"\r\nmsgstr \"B\"\r\n"),
              (Texts{{"1", "A"}, {"2", "B"}}));
}

TEST_F(PoFileTest, LeavesOutFuzzyAndObsoleteEntriesAndThoseWithoutContext) {
    EXPECT_EQ(read("#, fuzzy\nmsgctxt \"1\"\nmsgid \"a\"\nmsgstr \"A\"\n\n"
                   "#~ msgctxt \"2\"\n#~ msgid \"b\"\n#~ msgstr \"B\"\n\n"
                   "msgid \"c\"\nmsgstr \"C\"\n\n"
                   "#. for the clerk\n#: src/x.cpp:1\nmsgctxt \"3\"\nmsgid \"d\"\nmsgstr \"D\"\n"),
              (Texts{{"3", "D"}}));
}

TEST_F(PoFileTest, TheLastOfTwoEntriesOfOneContextCounts) {
    EXPECT_EQ(read("msgctxt \"1\"\nmsgid \"a\"\nmsgstr \"A\"\n\n"
                   "msgctxt \"1\"\nmsgid \"a\"\nmsgstr \"B\"\n"),
              (Texts{{"1", "B"}}));
}

TEST_F(PoFileTest, SaysFileAndLineOfWhatIsMalformed) {
    for (const char* broken :
         {"msgctxt \"1\nmsgid \"a\"\n", "msgctxt 1\n", "nonsense \"a\"\n", "\"alone\"\n",
          "msgctxt \"1\"\nmsgstr \"\\q\"\n", "msgctxt \"a\"b\"\n", "msgctxt\n"}) {
        const std::string said = failureOf(broken);
        EXPECT_NE(said.find("LNG_QTX_001.po"), std::string::npos) << broken;
        EXPECT_NE(said.find("(line "), std::string::npos) << broken << said;
    }
}

TEST_F(PoFileTest, TakesContextsAndEmptyTextsOverSeveralLines) {
    EXPECT_EQ(read("msgctxt \"\"\n\"11\"\n\"00\"\nmsgid \"\"\n\"a\"\n\"b\"\nmsgstr \"\"\n\"A\"\n"
                   "\"B\"\n\nmsgctxt \"2\"\nmsgid \"c\"\nmsgstr \"\"\n"),
              (Texts{{"1100", "AB"}, {"2", ""}}));
}

TEST_F(PoFileTest, LeavesOutEntriesWithoutTextAndThoseWithPlurals) {
    EXPECT_EQ(read("msgctxt \"1\"\nmsgid \"a\"\n\n"
                   "msgctxt \"2\"\nmsgid \"b\"\nmsgid_plural \"bs\"\nmsgstr[0] \"B\"\n"
                   "msgstr[1] \"Bs\"\n\n"
                   "msgctxt \"3\"\n"),
              (Texts{}));
}

TEST_F(PoFileTest, OnlyTheEntryAfterTheMarkIsFuzzy) {
    EXPECT_EQ(read("msgctxt \"1\"\nmsgid \"a\"\nmsgstr \"A\"\n"
                   "#: place\n#, c-format, fuzzy\n#| msgid \"old\"\n"
                   "msgctxt \"2\"\nmsgid \"b\"\nmsgstr \"B\"\n"
                   "# fuzzy in words only\nmsgctxt \"3\"\nmsgid \"c\"\nmsgstr \"C\"\n"
                   "#, c-format\nmsgctxt \"4\"\nmsgid \"d\"\nmsgstr \"D\"\n"),
              (Texts{{"1", "A"}, {"3", "C"}, {"4", "D"}}));
}

TEST_F(PoFileTest, AnEmptyFileHasNoTexts) {
    EXPECT_EQ(read(""), (Texts{}));
    EXPECT_EQ(read("\n\n# nothing\n"), (Texts{}));
}

TEST_F(PoFileTest, AFolderInPlaceOfAFileIsSaid) {
    EXPECT_THROW(readPoFile(folder_.string()), RuntimeError);
}

TEST_F(PoFileTest, AFileThatIsMissingIsSaid) {
    try {
        readPoFile(path());
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), error_number::cannotCreateObject);
        EXPECT_NE(error.description().find("LNG_QTX_001.po"), std::string::npos);
    }
}

TEST_F(PoFileTest, ALibraryIsFoundByItsNameAndHasNoTextThatItLacks) {
    read("msgctxt \"1100\"\nmsgid \"a\"\nmsgstr \"A\"\n");
    CatalogueLanguages languages(folder_.string());
    const auto library = languages.create("LNG_QTX_001.clsResources");
    EXPECT_EQ(library->resLoad(1100), "A");
    EXPECT_THROW(static_cast<void>(library->resLoad(1101)), RuntimeError);
    EXPECT_THROW(languages.create("LNG_QTX_007.clsResources"), RuntimeError);
}

TEST_F(PoFileTest, ALibraryWhoseFileIsBrokenIsNotCreated) {
    std::ofstream(path()) << "nonsense";
    CatalogueLanguages languages(folder_.string());
    EXPECT_THROW(languages.create("LNG_QTX_001.clsResources"), RuntimeError);
}

}  // namespace
}  // namespace catalogador::languages
