#include "adapters/script/windowless_surface.h"

#include <algorithm>

#include "adapters/script/answers.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::script {

namespace {
constexpr int characterWidth = 105;
constexpr Rect screen{0, 0, 15360, 11520};
/// What the frame and the command bars take of a window.
constexpr int frameWidth = 100;
constexpr int barsHeight = 1000;
}  // namespace

void WindowlessSurface::setModalRunner(std::function<void(Window&)> runner) {
    runner_ = std::move(runner);
}

void WindowlessSurface::showModal(Window& window) {
    if (runner_) runner_(window);
}

int WindowlessSurface::messageBox(const std::string& /*text*/, int style,
                                  const std::string& /*title*/) {
    return defaultAnswer(style);
}

int WindowlessSurface::textWidth(std::string_view text) const {
    return static_cast<int>(lengthInCharacters(text)) * characterWidth;
}

Rect WindowlessSurface::monitorOf(const Window& /*window*/) const {
    return screen;
}

Rect WindowlessSurface::clientRect(const Window& window) const {
    return {0, 0, std::max(0, window.place().width - frameWidth),
            std::max(0, window.place().height - barsHeight)};
}

}  // namespace catalogador::script
