#include "runtime/utf16.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

TEST(Utf16, TextsOfEveryPlaneGoThereAndBack) {
    const std::string text = "Ñandú \xE2\x82\xAC \xF0\x9F\x98\x80 end";
    EXPECT_EQ(utf16Of(text), u"Ñandú \u20AC \U0001F600 end");
    EXPECT_EQ(utf8Of(utf16Of(text)), text);
}

TEST(Utf16, LimitsOfTheSurrogatesAreKept) {
    for (const char32_t character :
         {0x0U, 0x7FU, 0x80U, 0xD7FFU, 0xE000U, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
        std::u16string units;
        if (character < 0x10000) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10U));
            units += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
        }
        EXPECT_EQ(utf16Of(utf8Of(units)), units) << static_cast<unsigned>(character);
    }
}

TEST(Utf16, WhatIsNoTextBecomesTheReplacementCharacter) {
    EXPECT_EQ(utf16Of("a\xFFz"), u"a\uFFFDz");
    const char16_t alone[] = {u'a', 0xD83D, u'z', 0xDE00};
    EXPECT_EQ(utf8Of({alone, 4}), "a\xEF\xBF\xBDz\xEF\xBF\xBD");
}

}  // namespace
}  // namespace catalogador
