#pragma once
#include <wx/textctrl.h>

#include "platform/controls/fields.h"

namespace catalogador::wx {

/// Has every text that comes into a native text box as a whole, by drop or from an input method,
/// become what the model's pasting makes of it, and keeps what is typed within the box's limit.
void guardEntry(wxTextCtrl& native, TextBox& box);

/// Shows a text that the program has set, however long it is.
void showText(wxTextCtrl& native, const TextBox& box);

/// Whether an input method or a dead key has begun a text that is not finished.
bool isComposing(const wxWindow& native);

}  // namespace catalogador::wx
