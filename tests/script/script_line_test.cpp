#include "adapters/script/script_line.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <sstream>

namespace catalogador::script {
namespace {

std::string refusalOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
    return "not refused";
}

TEST(Script, SkipsBlankLinesAndCommentsButCountsThem) {
    std::istringstream in("\xEF\xBB\xBF# first\n\n  \t\nstate\r\n  # again\nclose");
    Script script(in);
    const auto first = script.next();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->number, 4);
    EXPECT_EQ(wordsOf(first->text), (std::vector<Word>{{"state", false}}));
    const auto second = script.next();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->number, 6);
    EXPECT_EQ(second->text, "close");
    EXPECT_FALSE(script.next());
}

TEST(Script, ReadsNoFurtherThanTheLineAskedFor) {
    std::istringstream in("state\nclose\n");
    Script script(in);
    script.next();
    std::string rest;
    std::getline(in, rest);
    EXPECT_EQ(rest, "close");
}

TEST(ScriptWords, TextsAreJsonStrings) {
    EXPECT_EQ(
        wordsOf(R"(set  txtTexto1	"a \"b\" \\ \u00f1 ñ # c")"),
        (std::vector<Word>{{"set", false}, {"txtTexto1", false}, {"a \"b\" \\ ñ ñ # c", true}}));
    EXPECT_EQ(wordsOf(R"(type "")"), (std::vector<Word>{{"type", false}, {"", true}}));
}

TEST(ScriptWords, WhatIsNoJsonStringIsRefused) {
    EXPECT_EQ(refusalOf([] { wordsOf(R"(type "abc)"); }),
              "a text is not closed by a quotation mark");
    EXPECT_EQ(refusalOf([] { wordsOf(R"(type "a\x")"); }), R"(not a JSON string: "a\x")");
    EXPECT_EQ(refusalOf([] { wordsOf(R"(type "a"b)"); }), R"(a blank is missing after "a")");
}

TEST(ScriptArguments, TellsNamesTextsAndNumbersApart) {
    Arguments line(wordsOf(R"(resize name "text" -32768)"));
    EXPECT_FALSE(line.accept("header"));
    EXPECT_TRUE(line.accept("resize"));
    EXPECT_EQ(line.word("the control"), "name");
    EXPECT_EQ(line.text("the text"), "text");
    EXPECT_EQ(line.number<std::int16_t>("the view"), -32768);
    EXPECT_FALSE(line.left());
    line.end();
}

TEST(ScriptArguments, SaysWhichArgumentIsWrong) {
    const auto refusal = [](const std::string& text, auto&& take) {
        return refusalOf([&] {
            Arguments line(wordsOf(text));
            take(line);
        });
    };
    const auto number = [](Arguments& line) { line.number<std::int16_t>("the view"); };
    EXPECT_EQ(refusal("", number), "the view is missing");
    EXPECT_EQ(refusal("32768", number), "the view 32768 is out of range");
    EXPECT_EQ(refusal("1.5", number), "the view has to be a whole number, not 1.5");
    EXPECT_EQ(refusal("\"1\"", number), "the view is written without quotation marks");
    EXPECT_EQ(refusal("abc", [](Arguments& line) { line.text("the text"); }),
              "the text has to be a JSON string, not abc");
    EXPECT_EQ(refusal("abc", [](Arguments& line) { line.end(); }), "one argument too many: abc");
}

TEST(ScriptArguments, QuotedWordIsNoKeyword) {
    Arguments line(wordsOf(R"("cancel")"));
    EXPECT_FALSE(line.accept("cancel"));
}

}  // namespace
}  // namespace catalogador::script
