#include "adapters/script/traced_surface.h"

#include "platform/controls/window.h"

namespace catalogador::script {

void TracedSurface::focusChanged(Window& window) {
    const Control* focus = window.focus();
    transcript_.trace({{"event", "focus"}, {"control", focus == nullptr ? "" : focus->name()}});
    inner_.focusChanged(window);
}

void TracedSurface::pointerChanged(int pointer) {
    pointer_ = pointer;
    transcript_.trace({{"event", "pointer"}, {"value", pointer}});
    inner_.pointerChanged(pointer);
}

}  // namespace catalogador::script
