#include "platform/controls/control.h"

#include "platform/controls/window.h"

namespace catalogador {

void Control::setVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    if (!visible && window_ != nullptr) window_->focusLostIfUnable(*this);
    changed();
}

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    if (!enabled && window_ != nullptr) window_->focusLostIfUnable(*this);
    changed();
}

void Control::setRequired(bool required) {
    if (required_ == required) return;
    required_ = required;
    changed();
}

void Control::setProblem(const std::string& problem) {
    if (problem_ == problem) return;
    problem_ = problem;
    changed();
}

void Control::move(const Rect& place) {
    if (place_ == place) return;
    place_ = place;
    changed();
}

void Control::setBackColor(Color color) {
    if (backColor_ == color) return;
    backColor_ = color;
    changed();
}

bool Control::hasFocus() const {
    return window_ != nullptr && window_->focus() == this;
}

void Control::changed() {
    if (window_ != nullptr) window_->controlChanged(*this);
}

}  // namespace catalogador
