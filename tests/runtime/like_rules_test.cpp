#include <gtest/gtest.h>

#include <random>

#include "runtime/error.h"
#include "runtime/like.h"

namespace catalogador {
namespace {

bool like(std::string_view text, std::string_view pattern) {
    return LikePattern(pattern).matches(text);
}

/// The rules said once more, by trying everything: only for patterns of "*", "?", "#" and letters.
bool slowLike(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern.front() == '*')
        return slowLike(text, pattern.substr(1)) ||
               (!text.empty() && slowLike(text.substr(1), pattern));
    if (text.empty()) return false;
    const char wanted = pattern.front();
    const bool fits = wanted == '?' || wanted == text.front() ||
                      (wanted == '#' && text.front() >= '0' && text.front() <= '9');
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
    const auto word = [&](std::string_view letters, unsigned longest) {
        std::string text(random() % (longest + 1), ' ');
        for (char& c : text) c = letters[random() % letters.size()];
        return text;
    };
    for (int round = 0; round < 1'000'000; ++round) {
        const std::string text = word("ab1", 8);
        const std::string pattern = word("ab1*?#", 7);
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
