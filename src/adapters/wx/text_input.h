#pragma once
#include <wx/textctrl.h>

#include "platform/controls/fields.h"

namespace catalogador {

/// Hands what the user types into a native text box to the model: each character through the key
/// press event, the text as it then stands.
void bindTextInput(wxTextCtrl& native, TextBox& box);
/// Brings text, selection and maximum length of the native box to those of the model.
void syncText(wxTextCtrl& native, const TextBox& box);

}  // namespace catalogador
