#include "platform/controls/fields.h"

#include <gtest/gtest.h>

#include "blank_surface.h"
#include "platform/controls/keys.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

class PairWindow : public Window {
  public:
    explicit PairWindow(Surface& surface) : Window(surface) {
        add(box);
        add(other);
    }
    TextBox box{"box"};
    TextBox other{"other"};
};

void type(TextBox& box, const std::u32string& text) {
    for (const char32_t c : text) box.defaultCharacter(c);
}

TEST(TextBox, TypingStopsAtTheMaximumLengthInCharacters) {
    TextBox box("t");
    box.setMaxLength(3);
    type(box, U"áéíó");
    EXPECT_EQ(box.text(), "áéí");
}

TEST(TextBox, ALongerTextSetByTheProgramIsKeptWhole) {
    TextBox box("t");
    box.setMaxLength(3);
    box.setText("longer");
    EXPECT_EQ(box.text(), "longer");
    type(box, U"x");
    EXPECT_EQ(box.text(), "longer");
}

TEST(TextBox, TypingReplacesTheSelection) {
    TextBox box("t");
    box.setText("España");
    box.select(4, 2);
    type(box, U"ñe");
    EXPECT_EQ(box.text(), "Españe");
    EXPECT_EQ(box.selStart(), 6U);
}

TEST(TextBox, EditingKeysWorkOnCharacters) {
    TextBox box("t");
    box.setText("añb");
    box.defaultKey(key::end, 0);
    box.defaultKey(key::left, 0);
    box.defaultKey(key::backspace, 0);
    EXPECT_EQ(box.text(), "ab");
    box.defaultKey(key::deleteKey, 0);
    EXPECT_EQ(box.text(), "a");
    box.defaultKey(key::deleteKey, 0);
    EXPECT_EQ(box.text(), "a");
}

TEST(TextBox, ShiftExtendsTheSelectionBothWays) {
    TextBox box("t");
    box.setText("abcd");
    box.select(2, 0);
    box.defaultKey(key::left, modifier::shift);
    box.defaultKey(key::left, modifier::shift);
    EXPECT_EQ(box.selStart(), 0U);
    EXPECT_EQ(box.selLength(), 2U);
    box.defaultKey(key::right, modifier::shift);
    EXPECT_EQ(box.selStart(), 1U);
    EXPECT_EQ(box.selLength(), 1U);
}

TEST(TextBox, PastingMakesOneLineWithoutBlanksAtItsEnds) {
    TextBox box("t");
    const auto pasted = [&](const char* text) {
        box.setText("");
        box.paste(text);
        return box.text();
    };
    EXPECT_EQ(pasted("\r\n  uno\r\ndos\ttres\rcuatro\n"), "uno dos tres cuatro");
    EXPECT_EQ(pasted("a\u2028b\u2029c\u0085d\x0B e"), "a b c d  e");
    EXPECT_EQ(pasted("nul\x01\x7F\u009F!"), "nul!");
    EXPECT_EQ(pasted("  a  b  "), "a  b");
}

TEST(TextBox, PastingReplacesTheSelectionAndIsCutToWhatFits) {
    BlankSurface surface;
    PairWindow window(surface);
    TextBox& box = window.box;
    box.setMaxLength(6);
    box.setText("España");
    box.select(2, 3);
    box.paste("ñandú");
    EXPECT_EQ(box.text(), "Esñana");
    EXPECT_EQ(box.selStart(), 5U);
    EXPECT_EQ(box.selLength(), 0U);
    EXPECT_EQ(surface.beeps, 1);
    box.paste("x");
    EXPECT_EQ(box.text(), "Esñana");
    EXPECT_EQ(surface.beeps, 2);
    box.setMaxLength(0);
    box.paste("y");
    EXPECT_EQ(surface.beeps, 2);
}

TEST(TextBox, PastingNothingLeavesWhatIsThere) {
    TextBox box("t");
    box.setText("España");
    box.select(0, 6);
    box.paste(" \n\t ");
    EXPECT_EQ(box.text(), "España");
    EXPECT_EQ(box.selLength(), 6U);
}

TEST(TextBox, ControlZBringsBackTheTextOnEntryAndThenWhatWasTyped) {
    BlankSurface surface;
    PairWindow window(surface);
    TextBox& box = window.box;
    const auto undo = [&] { box.defaultKey('Z', modifier::control); };
    box.setText("España");
    window.setFocus(box);
    undo();
    EXPECT_EQ(box.text(), "España") << "nothing was typed";
    box.select(0, 6);
    type(box, U"Perú");
    undo();
    EXPECT_EQ(box.text(), "España");
    EXPECT_EQ(box.selLength(), 6U);
    undo();
    EXPECT_EQ(box.text(), "Perú");
    window.setFocus(window.other);
    window.setFocus(box);
    type(box, U"x");
    undo();
    EXPECT_EQ(box.text(), "Perú") << "the text on the entry that was last";
    EXPECT_FALSE(box.defaultKey('Z', 0));
}

TEST(ComboBox, FindsAnEntryByItsCode) {
    ComboBox combo("c");
    combo.addItem("Uno", 1);
    combo.addItem("Dos", 2);
    EXPECT_EQ(combo.findItemData(2), 1);
    EXPECT_EQ(combo.findItemData(3), -1);
}

TEST(ComboBox, AnIndexWithoutEntryRaises) {
    ComboBox combo("c");
    combo.addItem("Uno", 1);
    EXPECT_THROW(combo.setListIndex(1), RuntimeError);
    EXPECT_THROW((void)combo.itemData(-1), RuntimeError);
    combo.setListIndex(-1);
    EXPECT_EQ(combo.listIndex(), -1);
}

TEST(ComboBox, ALetterGoesToTheNextEntryThatBeginsWithIt) {
    ComboBox combo("c");
    combo.addItem("Éste", 1);
    combo.addItem("Perú", 2);
    combo.addItem("Paraguay", 3);
    combo.defaultCharacter(U'p');
    EXPECT_EQ(combo.listIndex(), 1);
    combo.defaultCharacter(U'P');
    EXPECT_EQ(combo.listIndex(), 2);
    combo.defaultCharacter(U'é');
    EXPECT_EQ(combo.listIndex(), 2) << "no entry begins with what was typed within a second";
}

TEST(ComboBox, LettersAfterItWasEmptiedBeginAnew) {
    ComboBox combo("c");
    combo.addItem("Perú", 1);
    combo.addItem("Uruguay", 2);
    for (int record = 0; record < 2; ++record) {
        for (const char32_t letter : std::u32string(U"peru")) combo.defaultCharacter(letter);
        EXPECT_EQ(combo.listIndex(), 0);
        combo.setListIndex(-1);
    }
}

TEST(ComboBox, ClearingLosesEntriesAndSelection) {
    ComboBox combo("c");
    combo.addItem("Uno", 1);
    combo.setListIndex(0);
    combo.clear();
    EXPECT_EQ(combo.listCount(), 0);
    EXPECT_EQ(combo.listIndex(), -1);
}

TEST(CheckBox, SpaceTogglesAndOtherValuesRaise) {
    CheckBox box("k");
    box.defaultCharacter(U' ');
    EXPECT_EQ(box.value(), 1);
    box.defaultCharacter(U' ');
    EXPECT_EQ(box.value(), 0);
    EXPECT_THROW(box.setValue(3), RuntimeError);
}

}  // namespace
}  // namespace catalogador
