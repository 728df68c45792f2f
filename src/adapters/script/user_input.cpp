#include "adapters/script/user_input.h"

#include <algorithm>
#include <array>
#include <limits>

#include "adapters/script/script_line.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador::script {

namespace {

struct KeyName {
    std::string_view name;
    int code;
};

constexpr std::array<KeyName, 21> keyNames{{
    {"Enter", key::enter},
    {"F1", key::f1},
    {"F2", key::f2},
    {"F4", key::f4},
    {"F5", key::f5},
    {"F6", key::f6},
    {"F10", key::f10},
    {"Delete", key::deleteKey},
    {"Space", key::space},
    {"Menu", key::menu},
    {"Tab", key::tab},
    {"Escape", key::escape},
    {"Up", key::up},
    {"Down", key::down},
    {"Left", key::left},
    {"Right", key::right},
    {"Backspace", key::backspace},
    {"PageUp", key::pageUp},
    {"PageDown", key::pageDown},
    {"Home", key::home},
    {"End", key::end},
}};

/// 0 for a name that no key has.
int codeOfKey(std::string_view name, bool withControl) {
    for (const KeyName& entry : keyNames)
        if (entry.name == name) return entry.code;
    if (!withControl || name.empty()) return 0;
    std::size_t end = 0;
    const char32_t character = nextCharacter(name, end);
    return end == name.size() ? letterKey(character) : 0;
}

bool takePrefix(std::string_view& name, std::string_view prefix) {
    if (!name.starts_with(prefix)) return false;
    name.remove_prefix(prefix.size());
    return true;
}

Control& require(Window& window, const std::string& name) {
    Control* control = window.find(name);
    if (control == nullptr) throw Refusal("there is no control " + name);
    return *control;
}

template <class Kind>
Kind& requireKind(Window& window, const std::string& name, const char* kind) {
    auto* control = dynamic_cast<Kind*>(&require(window, name));
    if (control == nullptr) throw Refusal(name + " is not a " + kind);
    return *control;
}

}  // namespace

void pressKeyNamed(Window& window, std::string_view name) {
    std::string_view key = name;
    int modifiers = modifier::none;
    if (takePrefix(key, "Ctrl+")) modifiers |= modifier::control;
    if (takePrefix(key, "Alt+")) modifiers |= modifier::alt;
    if (takePrefix(key, "Shift+")) modifiers |= modifier::shift;
    const int code = codeOfKey(key, (modifiers & modifier::control) != 0);
    if (code == 0) throw Refusal("there is no key " + std::string(name));
    window.pressKey(code, modifiers);
}

void typeText(Window& window, std::string_view text) {
    if (window.focus() == nullptr) throw Refusal("no control has the focus");
    for (std::size_t at = 0; at < text.size() && !window.isClosed();)
        window.typeCharacter(nextCharacter(text, at));
}

void pasteText(Window& window, std::string_view text) {
    if (window.focus() == nullptr) throw Refusal("no control has the focus");
    auto* box = dynamic_cast<TextBox*>(window.focus());
    if (box == nullptr) throw Refusal("nothing can be pasted into " + window.focus()->name());
    box->paste(text);
}

void focusControl(Window& window, const std::string& name) {
    Control& control = require(window, name);
    if (!control.focusable()) throw Refusal(name + " cannot take the focus");
    if (!control.visible()) throw Refusal(name + " is hidden");
    if (!control.enabled()) throw Refusal(name + " is disabled");
    window.userFocused(control);
}

void replaceTextOf(Window& window, const std::string& name, std::string_view text) {
    auto& box = requireKind<TextBox>(window, name, "text box");
    focusControl(window, name);
    box.select(0, std::numeric_limits<std::size_t>::max());
    if (text.empty())
        window.pressKey(key::deleteKey);
    else
        typeText(window, text);
}

void chooseEntry(Window& window, const std::string& name, std::int32_t code) {
    constexpr std::int32_t none = -1;
    auto& combo = requireKind<ComboBox>(window, name, "combo");
    const int index = code == none ? none : combo.findItemData(code);
    if (index == none && code != none)
        throw Refusal(name + " has no entry with the code " + decimalText(code));
    focusControl(window, name);
    combo.setListIndex(index);
}

void setCheck(Window& window, const std::string& name, bool checked) {
    auto& box = requireKind<CheckBox>(window, name, "check box");
    focusControl(window, name);
    const int wanted = checked ? 1 : 0;
    // A greyed box becomes checked first.
    while (box.value() != wanted) box.toggle();
}

void executeAction(Window& window, int id) {
    const Action* action = window.commandBars.find(id);
    if (action == nullptr) throw Refusal("there is no action " + decimalText(id));
    if (!action->enabled) throw Refusal("action " + decimalText(id) + " is disabled");
    window.commandBars.execute(id);
}

void placeWindow(Window& window, const Rect& place, WindowState state) {
    window.userPlaced(place, state);
    window.surface().windowChanged(window);
}

}  // namespace catalogador::script
