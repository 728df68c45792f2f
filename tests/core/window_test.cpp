#include "platform/controls/window.h"

#include <gtest/gtest.h>

#include "blank_surface.h"
#include "platform/controls/keys.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

class SampleWindow : public Window {
  public:
    explicit SampleWindow(Surface& surface) : Window(surface) {
        add(panel);
        add(label);
        add(first);
        add(second);
        panel.setTabStop(false);
        commandBars.addAction(3, "New", "", "", "");
        commandBars.bindings.push_back({bindingControl, 'N', 3});
    }
    Panel panel{"panel"};
    Label label{"label"};
    TextBox first{"first"};
    TextBox second{"second"};
};

class WindowTest : public ::testing::Test {
  protected:
    BlankSurface surface;
    SampleWindow window{surface};
};

TEST_F(WindowTest, TabGoesRoundTheControlsThatStopIt) {
    window.moveFocus(true);
    EXPECT_EQ(window.focus(), &window.first);
    window.pressKey(key::tab);
    EXPECT_EQ(window.focus(), &window.second);
    window.pressKey(key::tab);
    EXPECT_EQ(window.focus(), &window.first);
    window.pressKey(key::tab, modifier::shift);
    EXPECT_EQ(window.focus(), &window.second);
}

TEST_F(WindowTest, ADisabledControlRefusesTheFocusAndGivesItUp) {
    window.setFocus(window.first);
    window.first.setEnabled(false);
    EXPECT_EQ(window.focus(), &window.second);
    EXPECT_THROW(window.setFocus(window.first), RuntimeError);
}

TEST_F(WindowTest, ABindingRunsItsActionOnlyWhileItIsEnabled) {
    int runs = 0;
    window.commandBars.onExecute = [&](int) { ++runs; };
    window.pressKey('N', modifier::control);
    window.commandBars.setEnabled(3, false);
    window.pressKey('N', modifier::control);
    EXPECT_EQ(runs, 1);
}

TEST_F(WindowTest, AKeyPressHandlerCanExchangeTheCharacter) {
    window.setFocus(window.first);
    window.first.onKeyPress = [](char32_t& c) { c = c == U',' ? U'.' : c; };
    window.typeCharacter(U',');
    EXPECT_EQ(window.first.text(), ".");
}

TEST_F(WindowTest, AKeyWhoseHandlerMovedTheFocusDoesNothingInTheNewControl) {
    window.setFocus(window.first);
    window.first.onKeyPress = [&](char32_t&) { window.setFocus(window.second); };
    window.typeCharacter(U'x');
    EXPECT_EQ(window.second.text(), "");
}

TEST_F(WindowTest, ClosingRunsItsEventsOnce) {
    std::string order;
    window.onQueryUnload = [&] { order += "q"; };
    window.onUnload = [&] { order += "u"; };
    window.requestClose();
    window.requestClose();
    EXPECT_EQ(order, "qu");
    EXPECT_TRUE(window.isClosed());
}

TEST_F(WindowTest, AResizeHandlerMayEnforceAMinimum) {
    window.onResize = [&] { window.setWidth(5000); };
    window.userPlaced({0, 0, 100, 100}, WindowState::normal);
    EXPECT_EQ(window.place().width, 5000);
}

TEST_F(WindowTest, ACaptionsAmpersandTakesNoWidth) {
    window.label.setCaption("&Nombre:");
    EXPECT_EQ(window.label.width(), 700);
}

TEST_F(WindowTest, TheFilterBoxIsFoundByName) {
    EXPECT_EQ(window.find("filter"), &window.commandBars.filterBox);
    EXPECT_EQ(window.find("nothing"), nullptr);
}

TEST(Color, NamesAreHexadecimalOrOfTheSystem) {
    EXPECT_EQ(colorName({0x00DECFCE}), "#CECFDE");
    EXPECT_EQ(colorName({0x0000D7FF}), "#FFD700");
    EXPECT_EQ(colorName(systemHighlightColor), "system:highlight");
    EXPECT_EQ(colorName(systemButtonShadowColor), "system:buttonShadow");
}

}  // namespace
}  // namespace catalogador
