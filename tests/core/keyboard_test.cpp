#include <gtest/gtest.h>

#include "blank_surface.h"
#include "platform/controls/keys.h"
#include "platform/controls/record_grid.h"

namespace catalogador {
namespace {

class ListWindow : public Window {
  public:
    explicit ListWindow(Surface& surface) : Window(surface) {
        add(field);
        add(combo);
        add(list);
        for (const char* name : {"Chile", "Perú", "Panamá", "Portugal"})
            combo.addItem(name, static_cast<std::int32_t>(combo.listCount()));
        for (const int id : {3, 4, 14}) commandBars.addAction(id, "Action", "", "", "");
        commandBars.toolbar = {{3}, {4}};
        commandBars.quickAccess = {{14}};
        commandBars.onExecute = [this](int id) { executed = id; };
    }
    TextBox field{"field"};
    ComboBox combo{"combo"};
    RecordGrid list{"list"};
    int executed = 0;
};

class KeyboardTest : public ::testing::Test {
  protected:
    BlankSurface surface;
    ListWindow window{surface};
    ComboBox& combo = window.combo;
};

TEST_F(KeyboardTest, F6GoesRoundListFieldsAndToolbar) {
    window.setFocus(window.list);
    window.pressKey(key::f6);
    EXPECT_EQ(window.focus(), &window.field);
    window.pressKey(key::f6);
    EXPECT_EQ(window.focus(), &window.commandBars.buttons);
    window.pressKey(key::f6);
    EXPECT_EQ(window.focus(), &window.list);
    window.pressKey(key::f6, modifier::shift);
    EXPECT_EQ(window.focus(), &window.commandBars.buttons);
}

TEST_F(KeyboardTest, F6PassesFieldsThatAreDisabled) {
    window.field.setEnabled(false);
    combo.setEnabled(false);
    window.setFocus(window.list);
    window.pressKey(key::f6);
    EXPECT_EQ(window.focus(), &window.commandBars.buttons);
}

TEST_F(KeyboardTest, ArrowsGoFromButtonToButtonAndEnterPresses) {
    window.commandBars.setEnabled(4, false);
    window.setFocus(window.list);
    window.pressKey(key::f6, modifier::shift);
    EXPECT_EQ(window.commandBars.buttons.current(), 3);
    window.pressKey(key::right);
    EXPECT_EQ(window.commandBars.buttons.current(), 14);
    window.pressKey(key::right);
    EXPECT_EQ(window.commandBars.buttons.current(), 3);
    window.pressKey(key::left);
    window.pressKey(key::enter);
    EXPECT_EQ(window.executed, 14);
}

TEST_F(KeyboardTest, EscapeInTheToolbarGoesBackAndCancelsNothing) {
    bool escaped = false;
    window.onEscape = [&] { escaped = true; };
    window.setFocus(combo);
    window.pressKey(key::f6);
    window.pressKey(key::escape);
    EXPECT_EQ(window.focus(), &combo);
    EXPECT_FALSE(escaped);
}

TEST_F(KeyboardTest, AKeyIsBoundOnlyWhereTheLanguageHasLeftItFree) {
    window.commandBars.bindings = {{bindingControl, 'P', 4}};
    window.commandBars.bindIfFree({bindingControl, 'P', 14});
    window.commandBars.bindIfFree({bindingControl | bindingShift, 'P', 14});
    EXPECT_EQ(window.commandBars.boundAction('P', modifier::control), 4);
    EXPECT_EQ(window.commandBars.boundAction('P', modifier::control | modifier::shift), 14);
    EXPECT_EQ(window.commandBars.boundAction('P', modifier::control | modifier::alt), 0);
}

TEST_F(KeyboardTest, F4AndAltDownOpenTheListOfACombo) {
    window.setFocus(combo);
    window.pressKey(key::f4);
    EXPECT_TRUE(combo.listOpen());
    window.pressKey(key::f4);
    EXPECT_FALSE(combo.listOpen());
    window.pressKey(key::down, modifier::alt);
    EXPECT_TRUE(combo.listOpen());
}

TEST_F(KeyboardTest, EscapeLeavesTheChoiceOfAComboAsItWas) {
    bool escaped = false;
    window.onEscape = [&] { escaped = true; };
    combo.setListIndex(1);
    window.setFocus(combo);
    window.pressKey(key::f4);
    window.pressKey(key::down);
    EXPECT_EQ(combo.marked(), 2);
    window.pressKey(key::escape);
    EXPECT_EQ(combo.listIndex(), 1);
    EXPECT_FALSE(combo.listOpen());
    EXPECT_FALSE(escaped);
}

TEST_F(KeyboardTest, EnterChoosesTheMarkedEntryAndIsTheFieldsEnterToo) {
    int enters = 0;
    combo.onKeyPress = [&](char32_t& character) { enters += character == key::enter ? 1 : 0; };
    window.setFocus(combo);
    window.pressKey(key::f4);
    window.pressKey(key::end);
    window.pressKey(key::enter);
    EXPECT_EQ(combo.listIndex(), 3);
    EXPECT_EQ(enters, 1);
}

TEST_F(KeyboardTest, LettersMarkAnEntryOfTheOpenListAndChooseOneOfTheClosedList) {
    window.setFocus(combo);
    for (const char32_t letter : {U'p', U'e'}) window.typeCharacter(letter);
    EXPECT_EQ(combo.listIndex(), 1);
    window.pressKey(key::f4);
    window.typeCharacter(U'r');
    EXPECT_EQ(combo.marked(), 1);
    EXPECT_EQ(combo.listIndex(), 1);
}

TEST_F(KeyboardTest, AComboThatLosesTheFocusClosesItsListAndKeepsItsChoice) {
    combo.setListIndex(0);
    window.setFocus(combo);
    window.pressKey(key::f4);
    window.pressKey(key::end);
    window.userFocused(window.field);
    EXPECT_FALSE(combo.listOpen());
    EXPECT_EQ(combo.listIndex(), 0);
    window.setFocus(combo);
    window.pressKey(key::f4);
    window.pressKey(key::end);
    window.pressKey(key::tab);
    EXPECT_EQ(combo.listIndex(), 3) << "Tab goes on with the marked entry";
}

}  // namespace
}  // namespace catalogador
