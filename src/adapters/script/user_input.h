#pragma once
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/controls/window.h"

namespace catalogador::script {

/// What a user does to a window, through the model's own input members. Everything raises Refusal
/// where a user could not do it.

/// Presses a key by its name in scripts: "Enter", "Shift+Tab", "Ctrl+N" …
void pressKeyNamed(Window& window, std::string_view name);
/// Types into the control with the focus.
void typeText(Window& window, std::string_view text);
/// Puts a text into the text box with the focus as the clipboard does.
void pasteText(Window& window, std::string_view text);
/// Clicks into a control.
void focusControl(Window& window, const std::string& name);
/// Replaces the text of a text box by typing; an empty text empties it.
void replaceTextOf(Window& window, const std::string& name, std::string_view text);
/// Chooses the entry of a combo with that code; -1 chooses none.
void chooseEntry(Window& window, const std::string& name, std::int32_t code);
/// Clicks a check box until it is checked or not.
void setCheck(Window& window, const std::string& name, bool checked);
/// Executes an action of the command bars.
void executeAction(Window& window, int id);
/// Resizes, minimises or restores the window and has the screen follow.
void placeWindow(Window& window, const Rect& place, WindowState state);

}  // namespace catalogador::script
