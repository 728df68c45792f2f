#pragma once
#include <wx/toolbar.h>

#include <functional>

namespace catalogador::wx {

/// Takes a key of the model; true when it was used.
using KeyHandler = std::function<bool(int keyCode, int modifiers)>;

/// Gives the focus of the desktop to a button of a toolbar, where the desktop has such a thing, or
/// shows it as the one that Enter presses. No button by that id clears what was shown. Keys that
/// the native toolbar would use itself go to `keys`, which must outlive the toolbar.
void focusButton(wxToolBar& toolbar, int id, const KeyHandler& keys);

/// Has the scroll bars of a window stay in sight, where the desktop would hide them.
void keepScrollBars(wxWindow& window);

/// Whether a menu of this program is open, which has all keys while it is.
bool menuIsOpen();

}  // namespace catalogador::wx
