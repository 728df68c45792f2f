#pragma once
#include <functional>
#include <string>
#include <vector>

#include "platform/surface.h"

namespace catalogador {

/// A screen that a script can be played on, with a window of its own or without.
class PlayedScreen {
  public:
    virtual ~PlayedScreen() = default;
    [[nodiscard]] virtual Surface& surface() = 0;
    /// What the surface's showModal runs in the place of waiting for a user. The runner returns
    /// when the window is closed.
    virtual void setModalRunner(std::function<void(Window&)> runner) = 0;
    /// Waits, a second at most, until the desktop has given a window the size and the state that
    /// the model has for it.
    virtual void settle(Window& /*window*/) {}
    /// What the screen shows otherwise than the model says, one text for each difference.
    [[nodiscard]] virtual std::vector<std::string> differences(Window& window) = 0;
};

}  // namespace catalogador
