#pragma once
#include <wx/toplevel.h>

namespace catalogador::wx {

/// Whether a window that is shown has the size on the desktop that it was given last.
bool hasItsSize(const wxTopLevelWindow& window);

}  // namespace catalogador::wx
