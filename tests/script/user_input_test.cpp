#include "adapters/script/user_input.h"

#include <gtest/gtest.h>

#include "adapters/script/grid_input.h"
#include "adapters/script/script_line.h"
#include "adapters/script/windowless_surface.h"
#include "platform/controls/keys.h"
#include "small_window.h"

namespace catalogador::script {
namespace {

class UserInput : public testing::Test {
  protected:
    WindowlessSurface surface_;
    SmallWindow window_{surface_};

    template <class Body>
    std::string refusal(Body&& body) {
        try {
            body();
        } catch (const Refusal& refused) {
            return refused.what();
        }
        return "";
    }
    std::string grid(const std::string& text) {
        return refusal([&] {
            Arguments line(wordsOf(text));
            useGrid(window_, line);
        });
    }
};

TEST_F(UserInput, TypesThroughTheKeyPressEvent) {
    window_.text.onKeyPress = [](char32_t& character) {
        if (character == U',') character = U'.';
        if (character == U'x') character = 0;
    };
    focusControl(window_, "txtTexto1");
    typeText(window_, "ñ1,x5");
    EXPECT_EQ(window_.text.text(), "ñ1.5");
}

TEST_F(UserInput, TypingNeedsAFocus) {
    EXPECT_EQ(refusal([&] { typeText(window_, "a"); }), "no control has the focus");
}

TEST_F(UserInput, ReplacingATextHonoursItsMaximumLength) {
    window_.text.setText("before");
    window_.text.setMaxLength(3);
    replaceTextOf(window_, "txtTexto1", "abcdef");
    EXPECT_EQ(window_.text.text(), "abc");
    EXPECT_EQ(window_.focus(), &window_.text);
    replaceTextOf(window_, "txtTexto1", "");
    EXPECT_EQ(window_.text.text(), "");
}

TEST_F(UserInput, FocusIsRefusedWhereAClickCouldNotSetIt) {
    EXPECT_EQ(refusal([&] { focusControl(window_, "nada"); }), "there is no control nada");
    EXPECT_EQ(refusal([&] { focusControl(window_, "lblTexto1"); }),
              "lblTexto1 cannot take the focus");
    EXPECT_EQ(refusal([&] { focusControl(window_, "filter"); }), "filter is hidden");
    window_.check.setEnabled(false);
    EXPECT_EQ(refusal([&] { focusControl(window_, "chkValor1"); }), "chkValor1 is disabled");
    EXPECT_EQ(refusal([&] { setCheck(window_, "chkValor1", true); }), "chkValor1 is disabled");
    EXPECT_EQ(refusal([&] { replaceTextOf(window_, "cmbValor1", "a"); }),
              "cmbValor1 is not a text box");
}

TEST_F(UserInput, KeysAreKnownByName) {
    int code = 0;
    int modifiers = 0;
    window_.text.onKeyDown = [&](int& keyCode, int pressed) {
        code = keyCode;
        modifiers = pressed;
    };
    focusControl(window_, "txtTexto1");
    const auto press = [&](const char* name) {
        pressKeyNamed(window_, name);
        return std::pair(code, modifiers);
    };
    EXPECT_EQ(press("Enter"), std::pair(key::enter, modifier::none));
    EXPECT_EQ(press("End"), std::pair(key::end, modifier::none));
    EXPECT_EQ(press("Ctrl+s"), std::pair(int{'S'}, modifier::control));
    EXPECT_EQ(press("Shift+Left"), std::pair(key::left, modifier::shift));
    EXPECT_NE(refusal([&] { press("Return"); }), "");
    EXPECT_NE(refusal([&] { press("S"); }), "");
    EXPECT_NE(refusal([&] { press("Ctrl+"); }), "");
}

TEST_F(UserInput, ShiftTabGoesBack) {
    focusControl(window_, "cmbValor1");
    pressKeyNamed(window_, "Shift+Tab");
    EXPECT_EQ(window_.focus(), &window_.text);
}

TEST_F(UserInput, ChoosesEntriesByTheirCode) {
    chooseEntry(window_, "cmbValor1", 250);
    EXPECT_EQ(window_.combo.listIndex(), 1);
    EXPECT_EQ(window_.focus(), &window_.combo);
    EXPECT_EQ(refusal([&] { chooseEntry(window_, "cmbValor1", 999); }),
              "cmbValor1 has no entry with the code 999");
    EXPECT_EQ(window_.combo.listIndex(), 1);
    chooseEntry(window_, "cmbValor1", -1);
    EXPECT_EQ(window_.combo.listIndex(), -1);
}

TEST_F(UserInput, ChecksABoxByClicks) {
    window_.check.setValue(2);
    setCheck(window_, "chkValor1", false);
    EXPECT_EQ(window_.check.value(), 0);
    setCheck(window_, "chkValor1", true);
    EXPECT_EQ(window_.check.value(), 1);
}

TEST_F(UserInput, ActionsRunUnlessDisabled) {
    int executed = 0;
    window_.commandBars.onExecute = [&](int id) { executed = id; };
    executeAction(window_, 3);
    EXPECT_EQ(executed, 3);
    EXPECT_EQ(refusal([&] { executeAction(window_, 6); }), "action 6 is disabled");
    EXPECT_EQ(refusal([&] { executeAction(window_, 99); }), "there is no action 99");
    EXPECT_EQ(executed, 3);
}

TEST_F(UserInput, GridRowsAreCountedAmongTheVisibleOnes) {
    window_.grid.setRowHidden(1, true);
    EXPECT_EQ(grid("select 2"), "");
    EXPECT_EQ(window_.grid.row(), 3);
    EXPECT_EQ(window_.focus(), &window_.grid);
    EXPECT_EQ(grid("select 3"), "the grid has no visible row 3");
    EXPECT_EQ(grid("select 0"), "the grid has no visible row 0");
    EXPECT_EQ(grid("select"), "the row is missing");
    EXPECT_EQ(grid("hop 1"), "grid does not know hop");
}

TEST_F(UserInput, GridClicksReachItsEventsAfterTheSelection) {
    std::vector<std::string> events;
    window_.grid.onMouseUp = [&](MouseButton button, int row, int column) {
        events.push_back(std::string(button == MouseButton::right ? "right" : "left") + " " +
                         std::to_string(row) + "," + std::to_string(column) + " on " +
                         std::to_string(window_.grid.row()));
    };
    window_.grid.onDoubleClick = [&](int row, int column) {
        events.push_back("double " + std::to_string(row) + "," + std::to_string(column));
    };
    window_.grid.setColumnHidden(0, true);
    EXPECT_EQ(grid("rightclick 2"), "");
    EXPECT_EQ(grid("doubleclick 3"), "");
    EXPECT_EQ(grid("header 1"), "");
    EXPECT_EQ(grid("doubleclick header 2"), "");
    EXPECT_EQ(events, (std::vector<std::string>{"right 2,1 on 2", "left 3,1 on 3", "double 3,1",
                                                "left 0,1 on 3", "left 0,2 on 3", "double 0,2"}));
    EXPECT_EQ(grid("header 0"), "the grid shows no column 0");
    EXPECT_EQ(grid("header 3"), "the grid shows no column 3");
}

TEST_F(UserInput, DraggingAColumnEdgeTellsTheGrid) {
    int resized = -1;
    window_.grid.onAfterUserResize = [&](int, int column) { resized = column; };
    EXPECT_EQ(grid("resize 1 2500"), "");
    EXPECT_EQ(resized, 1);
    EXPECT_EQ(window_.grid.columnWidth(1), 2500);
    EXPECT_NE(grid("resize 1 -1"), "");
}

TEST_F(UserInput, ADisabledGridTakesNoClick) {
    window_.grid.setEnabled(false);
    EXPECT_EQ(grid("select 1"), "grdGrilla is disabled");
    EXPECT_EQ(grid("header 1"), "grdGrilla is disabled");
    EXPECT_EQ(grid("resize 1 100"), "grdGrilla is disabled");
}

}  // namespace
}  // namespace catalogador::script
