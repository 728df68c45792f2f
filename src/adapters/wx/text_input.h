#pragma once
#include <wx/textctrl.h>

#include <string>

#include "platform/controls/fields.h"

namespace catalogador::wx {

/// Hands what the user types into a native text box to the model: each character through the key
/// press event, the text as it then stands.
void bindTextInput(wxTextCtrl& native, TextBox& box);
/// Puts a text at a place, or in the place of the selection when that is there, as pasting does.
void pasteAt(wxTextCtrl& native, TextBox& box, long at, const std::string& text);
/// Brings text and selection of the native box to those of the model.
void syncText(wxTextCtrl& native, const TextBox& box);

}  // namespace catalogador::wx
