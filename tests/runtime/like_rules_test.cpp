#include <gtest/gtest.h>

#include <array>
#include <random>

#include "runtime/error.h"
#include "runtime/like.h"

namespace catalogador {
namespace {

bool like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).matches(text);
}

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Whether a set, given without its brackets, holds the character; the sets made below are
/// complete.
bool slowSetHolds(std::string_view set, char character) {
    const bool negated = set.starts_with('!');
    if (negated) set.remove_prefix(1);
    bool found = false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool range = i + 2 < set.size() && set[i + 1] == '-';
        found =
            found || (range ? set[i] <= character && character <= set[i + 2] : set[i] == character);
        if (range) i += 2;
    }
    return found != negated;
}

/// The rules said once more, by trying everything.
bool slowLike(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern.front() == '*')
        return slowLike(text, pattern.substr(1)) ||
               (!text.empty() && slowLike(text.substr(1), pattern));
    if (text.empty()) return false;
    if (pattern.front() == '[') {
        const std::size_t end = pattern.find(']');
        return slowSetHolds(pattern.substr(1, end - 1), text.front()) &&
               slowLike(text.substr(1), pattern.substr(end + 1));
    }
    const char wanted = pattern.front();
    const bool fits =
        wanted == '?' || wanted == text.front() || (wanted == '#' && isDigit(text.front()));
    return fits && slowLike(text.substr(1), pattern.substr(1));
}

TEST(LikePattern, KnowsRunsSinglesDigitsAndSets) {
    EXPECT_TRUE(like("ABC", "*B*"));
    EXPECT_TRUE(like("", "**"));
    EXPECT_TRUE(like("ñ", "?"));
    EXPECT_TRUE(like("a7", "a#"));
    EXPECT_FALSE(like("aa", "a#"));
    EXPECT_TRUE(like("C", "[A-F]"));
    EXPECT_FALSE(like("G", "[A-F]"));
    EXPECT_TRUE(like("G", "[!A-F]"));
    EXPECT_TRUE(like("*", "[*]"));
    EXPECT_TRUE(like("-", "[-a]"));
    EXPECT_TRUE(like("-", "[a-]"));
    EXPECT_TRUE(like("a]", "a]"));
    EXPECT_TRUE(like("ab", "a[]b"));
    EXPECT_TRUE(like("!", "[!]"));
}

TEST(LikePattern, RefusesOpenSetsAndReversedRanges) {
    EXPECT_THROW(LikePattern("[abc"), RuntimeError);
    EXPECT_THROW(LikePattern("*[z-a]*"), RuntimeError);
}

TEST(LikePattern, AgreesWithTheSlowRulesOnRandomPairs) {
    std::mt19937 random(20260301);
    constexpr std::array<std::string_view, 16> pieces{
        "a",    "b",     "1",     "-",     "*",    "*",    "?",      "#",
        "[ab]", "[!ab]", "[a-b]", "[0-9]", "[-b]", "[a-]", "[!1-9]", "[*?#]"};
    const auto anyOf = [&](const auto& choices) { return choices[random() % choices.size()]; };
    constexpr std::string_view letters = "ab1-*";
    for (int round = 0; round < 1'000'000; ++round) {
        std::string text;
        for (std::size_t left = random() % 9; left > 0; --left) text += anyOf(letters);
        std::string pattern;
        for (std::size_t left = random() % 7; left > 0; --left) pattern += anyOf(pieces);
        ASSERT_EQ(like(text, pattern), slowLike(text, pattern)) << text << " / " << pattern;
    }
}

TEST(LikePattern, IsNotSlowedDownByHostilePatterns) {
    EXPECT_FALSE(like(std::string(20'000, 'a'), "*a*a*a*a*a*a*a*a*b"));
}

TEST(LikePattern, TellsAPlainSubstring) {
    ASSERT_NE(LikePattern("*ABC*").plainSubstring(), nullptr);
    EXPECT_EQ(*LikePattern("*ABC*").plainSubstring(), "ABC");
    EXPECT_EQ(LikePattern("*A?C*").plainSubstring(), nullptr);
    EXPECT_EQ(LikePattern("ABC").plainSubstring(), nullptr);
}

}  // namespace
}  // namespace catalogador
