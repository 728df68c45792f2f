#include <wx/evtloop.h>

#include "adapters/wx/grid_view.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/text_entry.h"
#include "platform/controls/keys.h"
#include "platform/controls/record_grid.h"

namespace catalogador::wx {

namespace {

/// Key codes of the toolkit and of the model. Everything else that has a character comes as one.
int modelKey(int code) {
    constexpr std::pair<int, int> keys[] = {{WXK_BACK, key::backspace},
                                            {WXK_TAB, key::tab},
                                            {WXK_RETURN, key::enter},
                                            {WXK_NUMPAD_ENTER, key::enter},
                                            {WXK_ESCAPE, key::escape},
                                            {WXK_SPACE, key::space},
                                            {WXK_PAGEUP, key::pageUp},
                                            {WXK_PAGEDOWN, key::pageDown},
                                            {WXK_NUMPAD_PAGEUP, key::pageUp},
                                            {WXK_NUMPAD_PAGEDOWN, key::pageDown},
                                            {WXK_END, key::end},
                                            {WXK_HOME, key::home},
                                            {WXK_NUMPAD_END, key::end},
                                            {WXK_NUMPAD_HOME, key::home},
                                            {WXK_LEFT, key::left},
                                            {WXK_UP, key::up},
                                            {WXK_RIGHT, key::right},
                                            {WXK_DOWN, key::down},
                                            {WXK_NUMPAD_LEFT, key::left},
                                            {WXK_NUMPAD_UP, key::up},
                                            {WXK_NUMPAD_RIGHT, key::right},
                                            {WXK_NUMPAD_DOWN, key::down},
                                            {WXK_DELETE, key::deleteKey},
                                            {WXK_NUMPAD_DELETE, key::deleteKey},
                                            {WXK_WINDOWS_MENU, key::menu},
                                            {WXK_MENU, key::menu}};
    for (const auto& [native, model] : keys)
        if (native == code) return model;
    if (code >= WXK_F1 && code <= WXK_F12) return key::f1 + (code - WXK_F1);
    return 0;
}

int modelModifiers(const wxKeyEvent& event) {
    return (event.ShiftDown() ? modifier::shift : 0) |
           (event.ControlDown() ? modifier::control : 0) | (event.AltDown() ? modifier::alt : 0);
}

}  // namespace

bool ScreenFrame::handleKey(int keyCode, int modifiers) {
    if (window_.dispatchKey(keyCode, modifiers)) return true;
    Control* focused = window_.focus();
    if (released_ || window_.isClosed() || focused == nullptr) return true;
    if (focused == &window_.commandBars.buttons) {
        focused->defaultKey(keyCode, modifiers);
        return true;
    }
    if (keyCode == key::enter) {
        window_.dispatchCharacter(static_cast<char32_t>(keyCode));
        return true;
    }
    if (dynamic_cast<RecordGrid*>(focused) != nullptr) {
        const bool control = (modifiers & modifier::control) != 0;
        if (control && (keyCode == key::home || keyCode == key::end))
            if (GridView* view = gridView()) view->scrollToSide(keyCode == key::end);
        return focused->defaultKey(keyCode, modifiers);
    }
    // The native text box has no such thing as taking back what was typed.
    const bool undo = keyCode == 'Z' && modifiers == modifier::control;
    if (undo || dynamic_cast<ComboBox*>(focused) != nullptr)
        return focused->defaultKey(keyCode, modifiers);
    return false;
}

/// Alt belongs to the menu bar, except for the keys that open and close the list of a combo.
bool ScreenFrame::isForTheModel(int keyCode, int modifiers) const {
    if (keyCode == 0) return false;
    if ((modifiers & modifier::alt) == 0) return true;
    return modifiers == modifier::alt && (keyCode == key::up || keyCode == key::down) &&
           dynamic_cast<ComboBox*>(window_.focus()) != nullptr;
}

void ScreenFrame::onKey(wxKeyEvent& event) {
    // What a window above this one, a nested screen or the help, has no use for is not meant for
    // this one.
    if (wxGetTopLevelParent(wxDynamicCast(event.GetEventObject(), wxWindow)) != this)
        return event.Skip();
    if (released_ || menuIsOpen()) return event.Skip();
    // An input method that has begun a text has the keys first.
    wxWindow* const entry = window_.focus() == nullptr ? nullptr : nativeOf(*window_.focus());
    if (entry != nullptr && isComposing(*entry)) return event.Skip();
    const int modifiers = modelModifiers(event);
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    const int letter = (modifiers & modifier::control) != 0 ? letterKey(character) : 0;
    const int keyCode = letter != 0 ? letter : modelKey(event.GetKeyCode());
    const int loopsBefore = modalLoopsBegun;
    // What is typed while the toolbar has the focus is not meant for the field that had it before.
    const bool typedAtToolbar = window_.focus() == &window_.commandBars.buttons &&
                                event.GetUnicodeKey() >= WXK_SPACE && !event.AltDown();
    menuAtRow_ = true;
    const bool used = (isForTheModel(keyCode, modifiers) &&
                       (handleKey(keyCode, modifiers) || modalLoopsBegun != loopsBefore)) ||
                      typedAtToolbar;
    menuAtRow_ = false;
    if (window_.isClosed() && loop_ != nullptr) loop_->ScheduleExit();
    // At once, not when idle: the next key may be waiting already, and it is meant for the control
    // that has the focus now.
    if (used)
        sync();
    else
        event.Skip();
}

}  // namespace catalogador::wx
