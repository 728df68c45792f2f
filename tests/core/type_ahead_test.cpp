#include "platform/controls/type_ahead.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace catalogador {
namespace {

class TypeAheadTest : public ::testing::Test {
  protected:
    int type(char32_t letter, std::chrono::milliseconds pause = std::chrono::milliseconds(10)) {
        now += pause;
        const int found = ahead.type(
            letter, current, static_cast<int>(entries.size()),
            [&](int n) -> std::string_view { return entries[static_cast<std::size_t>(n)]; }, now);
        if (found >= 0) current = found;
        return found;
    }
    TypeAhead ahead;
    TypeAhead::Clock::time_point now;
    int current = -1;
    std::vector<std::string> entries{"Alemania", "El Salvador", "España",
                                     "Óptica",   "Perú",        "Eritrea"};
};

TEST_F(TypeAheadTest, LettersWithinASecondMakeOneText) {
    EXPECT_EQ(type(U'e'), 1);
    EXPECT_EQ(type(U's'), 2);
    EXPECT_EQ(type(U'p'), 2);
}

TEST_F(TypeAheadTest, AfterASecondALetterBeginsAnew) {
    EXPECT_EQ(type(U'e'), 1);
    EXPECT_EQ(type(U'p', std::chrono::milliseconds(1100)), 4);
}

TEST_F(TypeAheadTest, AccentsAndCaseDoNotMatter) {
    EXPECT_EQ(type(U'o'), 3);
    EXPECT_EQ(type(U'P', std::chrono::milliseconds(1100)), 4);
    EXPECT_EQ(type(U'É'), 4);
    EXPECT_EQ(type(U'r'), 4);
    EXPECT_EQ(type(U'u'), 4);
}

TEST_F(TypeAheadTest, TheSameLetterGoesRoundTheEntriesThatBeginWithIt) {
    EXPECT_EQ(type(U'e'), 1);
    EXPECT_EQ(type(U'e'), 2);
    EXPECT_EQ(type(U'e'), 5);
    EXPECT_EQ(type(U'e'), 1);
}

TEST_F(TypeAheadTest, ABlankCountsOnlyInsideOfAText) {
    EXPECT_EQ(type(U' '), -1);
    EXPECT_EQ(type(U'e'), 1);
    EXPECT_EQ(type(U'l'), 1);
    EXPECT_EQ(type(U' '), 1);
    EXPECT_EQ(type(U's'), 1);
}

TEST_F(TypeAheadTest, WhatNoEntryBeginsWithLeavesTheChoice) {
    EXPECT_EQ(type(U'z'), -1);
    EXPECT_EQ(current, -1);
}

}  // namespace
}  // namespace catalogador
