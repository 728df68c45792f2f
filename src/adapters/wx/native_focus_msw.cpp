#include <windows.h>
// It uses the names of the other.
#include <commctrl.h>

#include "adapters/wx/native_focus.h"

namespace catalogador::wx {

void focusButton(wxToolBar& toolbar, int id, const KeyHandler& /*keys*/) {
    const int place = id == 0 ? wxNOT_FOUND : toolbar.GetToolPos(id);
    SendMessage(toolbar.GetHWND(), TB_SETHOTITEM, static_cast<WPARAM>(place), 0);
}

void keepScrollBars(wxWindow& /*window*/) {}

bool menuIsOpen() {
    // Menus run in a loop of their own there, which offers no key to anybody else.
    return false;
}

}  // namespace catalogador::wx
