#pragma once
#include <cstdint>
#include <memory>

#include "adapters/script/screen.h"

namespace catalogador {

/// The screen with real windows; the buttons of its boxes speak the language of that number. Raises
/// RuntimeError when this program was built without windows, or when there is no display.
std::unique_ptr<PlayedScreen> realScreen(std::int16_t language);

}  // namespace catalogador
