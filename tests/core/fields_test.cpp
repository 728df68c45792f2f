#include "platform/controls/fields.h"

#include <gtest/gtest.h>

#include "platform/controls/keys.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

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
    EXPECT_EQ(combo.listIndex(), 0);
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
