#include <gtest/gtest.h>

#include "runtime/base_letters.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

TEST(Trim, TakesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\n "), "\ta\n");
    EXPECT_EQ(trim("   "), "");
}

TEST(UpperCase, KnowsLatinGreekAndCyrillic) {
    EXPECT_EQ(upperCase("añéüÿ ő ž"), "AÑÉÜŸ Ő Ž");
    EXPECT_EQ(upperCase("αβγς"), "ΑΒΓΣ");
    EXPECT_EQ(upperCase("жёї"), "ЖЁЇ");
    EXPECT_EQ(upperCase("straße"), "STRAßE");
    EXPECT_EQ(upperCase("a\xFFz"), "A\xFFZ");
}

TEST(EqualText, IgnoresCaseAndTheFormOfSigma) {
    EXPECT_TRUE(equalText("ΟΔΟΣ", "οδος"));
    EXPECT_TRUE(equalText("Ñandú", "ñANDÚ"));
    EXPECT_FALSE(equalText("n", "ñ"));
}

TEST(ReplaceText, ReplacesEveryOccurrenceOnce) {
    EXPECT_EQ(replaceText("[P][p]", "[p]", "x", Compare::text), "xx");
    EXPECT_EQ(replaceText("[P][p]", "[p]", "x", Compare::binary), "[P]x");
    EXPECT_EQ(replaceText("aa", "a", "aa", Compare::binary), "aaaa");
    EXPECT_EQ(replaceText("abc", "", "x", Compare::text), "abc");
    EXPECT_EQ(replaceText("ñÑx", "Ñ", "-", Compare::text), "--x");
    EXPECT_EQ(replaceText("ſé", "É", "e", Compare::text), "ſe");
}

TEST(FindText, GivesThePositionInBytes) {
    EXPECT_EQ(findText("ñab", "AB", Compare::text), 2U);
    EXPECT_EQ(findText("abc", "C", Compare::binary), std::string_view::npos);
    EXPECT_EQ(findText("abc", "", Compare::text), 0U);
    EXPECT_TRUE(containsText("xABM", "m", Compare::text));
}

TEST(SplitText, GivesNoPieceForAnEmptyText) {
    EXPECT_TRUE(splitText("", "|").empty());
    EXPECT_EQ(splitText("a||b|", "|"), (std::vector<std::string>{"a", "", "b", ""}));
}

TEST(Characters, AreCodePointsAndInvalidBytesCountOneEach) {
    EXPECT_EQ(lengthInCharacters("añ😀"), 3U);
    EXPECT_EQ(lengthInCharacters("\xC3"), 1U);
    EXPECT_EQ(leftCharacters("añ😀", 2), "añ");
    EXPECT_EQ(leftCharacters("a", 5), "a");
    EXPECT_EQ(characterOffset("añb", 2), 3U);
}

TEST(ZeroPadded, FillsUpOnTheLeft) {
    EXPECT_EQ(zeroPadded(1, 3), "001");
    EXPECT_EQ(zeroPadded(1234, 3), "1234");
}

TEST(WithoutAccents, LettersKeepTheirBase) {
    EXPECT_EQ(withoutAccents("Perú, Ñuñoa, Øresund, Ελλάδα, ёж"),
              "Peru, Nunoa, Oresund, Ελλαδα, еж");
    EXPECT_EQ(withoutAccents("e\u0301"), "e");
    EXPECT_EQ(withoutAccents("a\xFF\u4e2d"), "a\xFF\u4e2d");
}

}  // namespace
}  // namespace catalogador
