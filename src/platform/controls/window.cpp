#include "platform/controls/window.h"

#include <algorithm>
#include <array>

#include "platform/controls/keys.h"
#include "platform/controls/record_grid.h"
#include "runtime/error.h"

namespace catalogador {

Window::Window(Surface& surface) : surface_(surface) {
    commandBars.window_ = this;
    commandBars.filterBox.window_ = this;
    commandBars.filterBox.setVisible(false);
    commandBars.buttons.window_ = this;
}

void Window::add(Control& control) {
    control.window_ = this;
    controls_.push_back(&control);
    if (auto* panel = dynamic_cast<Panel*>(&control)) panel_ = panel;
    if (auto* list = dynamic_cast<RecordGrid*>(&control)) list_ = list;
}

Control* Window::find(std::string_view name) const {
    for (Control* control : controls_)
        if (control->name() == name) return control;
    for (const Control* bar : {static_cast<const Control*>(&commandBars.filterBox),
                               static_cast<const Control*>(&commandBars.buttons)})
        if (name == bar->name()) return const_cast<Control*>(bar);
    return nullptr;
}

void Window::setCaption(std::string caption) {
    caption_ = std::move(caption);
    if (open_) surface_.windowChanged(*this);
}

void Window::move(const Rect& place) {
    const bool resize = place.width != place_.width || place.height != place_.height;
    if (place_ == place) return;
    place_ = place;
    if (open_) surface_.windowChanged(*this);
    if (resize) resized();
}

void Window::resized() {
    // The handler may resize the window again (to a minimum); one round of events is enough then.
    if (resizing_) return;
    resizing_ = true;
    if (onResize) onResize();
    if (commandBars.onResize) commandBars.onResize();
    resizing_ = false;
}

void Window::userPlaced(const Rect& place, WindowState state) {
    const bool resize =
        place.width != place_.width || place.height != place_.height || state != state_;
    place_ = place;
    state_ = state;
    if (resize) resized();
}

void Window::setFocus(Control& control) {
    if (focus_ == &control) return;
    if (!control.canTakeFocus())
        throw RuntimeError(error_number::invalidProcedureCall,
                           "Invalid procedure call or argument");
    Control* before = focus_;
    focus_ = &control;
    if (&control == &commandBars.buttons) commandBars.buttons.focusComes(before);
    if (before != nullptr) before->focusGone();
    if (before != nullptr && before->onLostFocus) before->onLostFocus();
    if (open_) surface_.focusChanged(*this);
    if (&control == &commandBars.buttons || before == &commandBars.buttons) commandBarsChanged();
    if (focus_ != &control) return;
    control.entered();
    if (control.onGotFocus) control.onGotFocus();
}

void Window::userFocused(Control& control) {
    if (control.canTakeFocus()) setFocus(control);
}

bool Window::inTabOrder(const Control& control) const {
    return control.canTakeFocus() && control.tabStop();
}

void Window::moveFocus(bool forward) {
    const auto count = static_cast<std::ptrdiff_t>(controls_.size());
    const auto found = std::find(controls_.begin(), controls_.end(), focus_);
    std::ptrdiff_t at =
        found == controls_.end() ? (forward ? -1 : count) : found - controls_.begin();
    for (std::ptrdiff_t step = 0; step < count; ++step) {
        at = (at + (forward ? 1 : count - 1)) % count;
        Control& candidate = *controls_[static_cast<std::size_t>(at)];
        if (inTabOrder(candidate)) {
            setFocus(candidate);
            return;
        }
    }
}

Control* Window::firstField() const {
    for (Control* control : controls_)
        if (control != list_ && inTabOrder(*control)) return control;
    return nullptr;
}

void Window::focusNextPart(bool forward) {
    const std::array<Control*, 3> parts{list_, firstField(), &commandBars.buttons};
    const std::size_t from =
        focus_ == list_ ? 0 : (focus_ == parts[2] || focus_ == &commandBars.filterBox ? 2 : 1);
    for (std::size_t step = 1; step < parts.size(); ++step) {
        Control* next = parts[(from + (forward ? step : parts.size() - step)) % parts.size()];
        if (next != nullptr && next->canTakeFocus()) return setFocus(*next);
    }
}

void Window::focusLostIfUnable(Control& control) {
    if (focus_ != &control) return;
    moveFocus(true);
    if (focus_ == &control) {
        focus_ = nullptr;
        if (open_) surface_.focusChanged(*this);
    }
}

bool Window::dispatchKey(int keyCode, int modifiers) {
    if (focus_ != nullptr && focus_->takeKeyFirst(keyCode, modifiers)) return true;
    if (const int action = commandBars.boundAction(keyCode, modifiers); action != 0) {
        commandBars.execute(action);
        return true;
    }
    int code = keyCode;
    if (focus_ != nullptr && focus_->onKeyDown) focus_->onKeyDown(code, modifiers);
    if (code == 0) return true;
    if (keyCode == key::tab && (modifiers & (modifier::control | modifier::alt)) == 0) {
        moveFocus((modifiers & modifier::shift) == 0);
        return true;
    }
    if (keyCode == key::f6 && (modifiers & ~modifier::shift) == 0) {
        focusNextPart((modifiers & modifier::shift) == 0);
        return true;
    }
    if (keyCode == key::escape && onEscape) {
        onEscape();
        return true;
    }
    if (keyCode == key::f5 && onRefresh) {
        onRefresh();
        return true;
    }
    return false;
}

char32_t Window::dispatchCharacter(char32_t character) {
    if (focus_ != nullptr && focus_->onKeyPress) focus_->onKeyPress(character);
    return character;
}

void Window::pressKey(int keyCode, int modifiers) {
    if (dispatchKey(keyCode, modifiers) || closed_) return;
    const bool plain = (modifiers & (modifier::control | modifier::alt)) == 0;
    const bool hasCharacter = keyCode == key::enter || keyCode == key::escape ||
                              keyCode == key::backspace || keyCode == key::space;
    if (plain && hasCharacter) {
        Control* pressedIn = focus_;
        const char32_t character = dispatchCharacter(static_cast<char32_t>(keyCode));
        if (character == 0 || closed_ || focus_ != pressedIn) return;
        if (keyCode == key::space && focus_ != nullptr) focus_->defaultCharacter(character);
    }
    if (focus_ != nullptr) focus_->defaultKey(keyCode, modifiers);
}

void Window::typeCharacter(char32_t character) {
    Control* typedIn = focus_;
    const char32_t kept = dispatchCharacter(character);
    if (kept != 0 && focus_ == typedIn && focus_ != nullptr) focus_->defaultCharacter(kept);
}

void Window::requestClose() {
    if (closed_) return;
    if (onQueryUnload) onQueryUnload();
    if (onUnload) onUnload();
    closed_ = true;
}

void Window::controlChanged(Control& control) {
    if (open_) surface_.controlChanged(*this, control);
}

void Window::commandBarsChanged() {
    if (open_) surface_.commandBarsChanged(*this);
}

}  // namespace catalogador
