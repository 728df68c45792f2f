#include "platform/controls/command_bars.h"

#include <algorithm>

#include "platform/controls/keys.h"
#include "platform/controls/window.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

int letterKey(char32_t character) {
    const bool ascii = character < 0x80;
    std::string text;
    appendCharacter(text, character);
    const std::string capital = upperCase(text);
    std::size_t first = 0;
    const auto code = static_cast<int>(nextCharacter(capital, first));
    return (ascii ? code >= 'A' && code <= 'Z' : first == capital.size()) ? code : 0;
}

void CommandBars::addAction(int id, std::string caption, std::string tooltip,
                            std::string description, std::string category) {
    Action action;
    action.id = action.icon = id;
    action.caption = std::move(caption);
    action.tooltip = std::move(tooltip);
    action.description = std::move(description);
    action.category = std::move(category);
    actions_.push_back(std::move(action));
    changed();
}

const Action* CommandBars::find(int id) const {
    const auto found = std::find_if(actions_.begin(), actions_.end(),
                                    [&](const Action& action) { return action.id == id; });
    return found == actions_.end() ? nullptr : &*found;
}

Action& CommandBars::require(int id) {
    for (Action& action : actions_)
        if (action.id == id) return action;
    throw RuntimeError(error_number::invalidProcedureCall, "Invalid procedure call or argument");
}

void CommandBars::setEnabled(int id, bool enabled) {
    Action& action = require(id);
    if (action.enabled == enabled) return;
    action.enabled = enabled;
    if (id == action::filterBox) filterBox.setEnabled(enabled);
    changed();
}

void CommandBars::setChecked(int id, bool checked) {
    require(id).checked = checked;
    changed();
}

void CommandBars::setIcon(int id, int icon) {
    require(id).icon = icon;
    changed();
}

void CommandBars::setCaption(int id, std::string caption) {
    require(id).caption = std::move(caption);
    changed();
}

bool CommandBars::execute(int id) {
    const Action* action = find(id);
    if (action == nullptr || !action->enabled) return false;
    if (onExecute) onExecute(id);
    return true;
}

const Menu* CommandBars::contextMenu(int id) const {
    const auto found = std::find_if(contextMenus.begin(), contextMenus.end(),
                                    [&](const Menu& menu) { return menu.id == id; });
    return found == contextMenus.end() ? nullptr : &*found;
}

int CommandBars::boundAction(int keyCode, int modifiers) const {
    if ((modifiers & modifier::alt) != 0) return 0;
    const int pressed = ((modifiers & modifier::control) != 0 ? bindingControl : 0) |
                        ((modifiers & modifier::shift) != 0 ? bindingShift : 0);
    for (const KeyBinding& binding : bindings)
        if (binding.modifiers == pressed && binding.keyCode == keyCode) return binding.actionId;
    return 0;
}

void CommandBars::bindIfFree(const KeyBinding& binding) {
    const bool taken = std::any_of(bindings.begin(), bindings.end(), [&](const KeyBinding& other) {
        return other.modifiers == binding.modifiers && other.keyCode == binding.keyCode;
    });
    if (!taken) bindings.push_back(binding);
}

std::vector<int> ToolbarButtons::enabledButtons() const {
    std::vector<int> enabled;
    for (const auto* places : {&bars_.toolbar, &bars_.quickAccess})
        for (const ActionPlace& place : *places) {
            const Action* action = bars_.find(place.actionId);
            if (action != nullptr && action->enabled && action->id != action::filterBox)
                enabled.push_back(action->id);
        }
    return enabled;
}

int ToolbarButtons::current() const {
    const std::vector<int> enabled = enabledButtons();
    if (!hasFocus() || enabled.empty()) return 0;
    const bool known = std::find(enabled.begin(), enabled.end(), button_) != enabled.end();
    return known ? button_ : enabled.front();
}

bool ToolbarButtons::takeKeyFirst(int keyCode, int modifiers) {
    if (keyCode != key::escape || modifiers != modifier::none) return false;
    if (cameFrom_ != nullptr && cameFrom_->canTakeFocus())
        window()->setFocus(*cameFrom_);
    else
        window()->moveFocus(true);
    return true;
}

bool ToolbarButtons::defaultKey(int keyCode, int /*modifiers*/) {
    const std::vector<int> enabled = enabledButtons();
    if (enabled.empty()) return false;
    const auto count = static_cast<std::ptrdiff_t>(enabled.size());
    const auto at = std::find(enabled.begin(), enabled.end(), current()) - enabled.begin();
    std::ptrdiff_t next = at;
    if (keyCode == key::right || keyCode == key::down) next = (at + 1) % count;
    if (keyCode == key::left || keyCode == key::up) next = (at + count - 1) % count;
    if (keyCode == key::home) next = 0;
    if (keyCode == key::end) next = count - 1;
    button_ = enabled[static_cast<std::size_t>(next)];
    if (keyCode == key::enter || keyCode == key::space) bars_.execute(button_);
    if (window() != nullptr) window()->commandBarsChanged();
    return true;
}

Color CommandBars::paintColor(int entry) const {
    switch (entry) {
        case 36:
            return {0x00EFE7E1};
        case 45:
            return {0x00502D1E};
        default:
            throw RuntimeError(error_number::invalidProcedureCall,
                               "The theme has no such colour entry");
    }
}

void CommandBars::recalcLayout() {
    changed();
    if (onResize) onResize();
}

void CommandBars::changed() {
    if (window_ != nullptr) window_->commandBarsChanged();
}

}  // namespace catalogador
