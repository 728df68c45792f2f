#pragma once
#include "adapters/script/script_line.h"
#include "platform/controls/window.h"

namespace catalogador::script {

/// Carries out a `grid …` line: what the mouse does to the record grid of the window. Raises
/// Refusal where a user could not do it.
void useGrid(Window& window, Arguments& line);

}  // namespace catalogador::script
