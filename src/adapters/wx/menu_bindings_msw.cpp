#include "adapters/wx/menu_bindings.h"
#include "platform/controls/keys.h"

namespace catalogador::wx {

void showBinding(wxMenuItem& item, const KeyBinding& binding) {
    // The blanks keep the toolkit from reading the text as an accelerator.
    wxString keys;
    if (binding.modifiers == bindingControl && isLetterKey(binding.keyCode))
        keys = "Ctrl + " + wxString(wxUniChar(binding.keyCode));
    else if (binding.modifiers == 0 && binding.keyCode >= key::f1)
        keys = wxString::Format(" F%d", binding.keyCode - key::f1 + 1);
    if (!keys.empty()) item.SetItemLabel(item.GetItemLabel() + "\t" + keys);
}

}  // namespace catalogador::wx
