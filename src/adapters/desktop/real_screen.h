#pragma once
#include <cstdint>
#include <memory>

#include "platform/played_screen.h"
#include "platform/printer.h"
#include "platform/window_memory.h"

namespace catalogador::desktop {

/// A screen with real windows and the printers of this desk.
class RealScreen : public PlayedScreen {
  public:
    [[nodiscard]] virtual Printer& printer() = 0;
    /// Windows that a user works with get the size that this remembers of them.
    virtual void rememberSizes(WindowMemory memory) = 0;
    /// Shows help over a window: command 3 the contents, 15 the page of the id in `data`. Raises
    /// RuntimeError when there is none.
    virtual void showHelp(Window& window, int command, std::int32_t data) = 0;
};

/// The screen with real windows; the buttons of its boxes speak the language of that number. Raises
/// RuntimeError when this program was built without windows, or when there is no display.
std::unique_ptr<RealScreen> realScreen(std::int16_t language);

}  // namespace catalogador::desktop
