#include "printing/text_fit.h"

#include <gtest/gtest.h>

#include "even_font.h"

namespace catalogador {
namespace {

using Lines = std::vector<std::string>;

class TextFitTest : public testing::Test {
  protected:
    Lines lines(std::string_view text, int characters, std::size_t most = 3) {
        return fit_.lines(text, characters * EvenFont::characterWidth, most);
    }

    EvenFont measure_;
    PrintFont font_{"Any", 8, false};
    TextFit fit_{measure_, font_};
};

TEST_F(TextFitTest, ATextThatFitsIsOneLine) {
    EXPECT_EQ(lines("justo", 5), Lines{"justo"});
    EXPECT_EQ(lines("", 5), Lines{});
}

TEST_F(TextFitTest, BreaksAtBlanksAndDropsThem) {
    EXPECT_EQ(lines("uno dos tres", 7), (Lines{"uno dos", "tres"}));
    EXPECT_EQ(lines("uno dos   tres", 8), (Lines{"uno dos", "tres"}));
    EXPECT_EQ(lines("  uno  ", 8), Lines{"uno"});
}

TEST_F(TextFitTest, BreaksAWordThatIsWiderThanTheRoom) {
    EXPECT_EQ(lines("abcdefghij", 4), (Lines{"abcd", "efgh", "ij"}));
}

TEST_F(TextFitTest, EndsInAnEllipsisWhereLinesRunOut) {
    EXPECT_EQ(lines("uno dos tres cuatro", 6, 2), (Lines{"uno", "dos t…"}));
    EXPECT_EQ(lines("abcdefgh", 4, 1), Lines{"abc…"});
    EXPECT_EQ(lines("abc defghi", 5, 1), Lines{"abc…"});
}

TEST_F(TextFitTest, ARoomOfHardlyAnyCharactersTakesOneLine) {
    EXPECT_EQ(lines("1234567", 3), Lines{"12…"});
    EXPECT_EQ(lines("1234567", 1), Lines{"…"});
    EXPECT_EQ(lines("123", 3), Lines{"123"});
}

TEST_F(TextFitTest, WhereNotEvenTheEllipsisFitsThereIsNoLine) {
    EXPECT_EQ(lines("abc", 0), Lines{});
}

TEST_F(TextFitTest, NeverDividesACharacter) {
    EXPECT_EQ(lines("ññññññ", 4), (Lines{"ññññ", "ññ"}));
    EXPECT_EQ(lines("😀😀😀", 2, 1), Lines{"😀…"});
}

TEST_F(TextFitTest, LineEndsCountAsOneBlank) {
    EXPECT_EQ(lines("a\r\nb", 10), Lines{"a b"});
    EXPECT_EQ(lines("a\tb", 10), Lines{"a b"});
}

TEST_F(TextFitTest, KnowsTheWidestWord) {
    EXPECT_EQ(fit_.widestWord("la cigüeña vuela"), 7 * EvenFont::characterWidth);
    EXPECT_EQ(fit_.widestWord("la cigüeña vuela", 650), 5 * EvenFont::characterWidth);
    EXPECT_EQ(fit_.widestWord(""), 0);
}

TEST_F(TextFitTest, NoLineIsWiderThanTheRoom) {
    const std::string text = "El veloz murciélago hindú comía feliz cardillo y kiwi sin parar";
    for (int room = 1; room < 70; ++room)
        for (std::size_t most = 1; most < 6; ++most) {
            const Lines given = lines(text, room, most);
            EXPECT_FALSE(given.empty());
            EXPECT_LE(given.size(), most);
            for (const std::string& line : given)
                EXPECT_LE(static_cast<int>(lengthInCharacters(line)), room) << line;
        }
}

}  // namespace
}  // namespace catalogador
