#pragma once
#include <wx/menuitem.h>

#include "platform/controls/command_bars.h"

namespace catalogador::wx {

/// Shows beside a menu's entry the keys that run it. The entry does not listen to them: the window
/// does, for all that shows the action. Nothing is shown for a binding that no key gives.
void showBinding(wxMenuItem& item, const KeyBinding& binding);

}  // namespace catalogador::wx
