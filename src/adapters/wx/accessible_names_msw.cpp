#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"

namespace catalogador::wx {

void nameForReaders(wxWindow& /*field*/, const wxString& /*name*/) {
    // Windows gives a field the name of the label before it.
}

void nameForReaders(wxToolBar& toolbar, const wxString& name,
                    const std::vector<wxString>& /*tools*/) {
    // There a window is called by its text, and a button without text by its tooltip.
    toolbar.SetLabel(name);
}

void readAsAlert(wxWindow& /*box*/, const wxString& /*text*/) {
    // The boxes of Windows are alerts already.
}

std::string readersName(const wxToolBar& toolbar) {
    return utf8Text(toolbar.GetLabel());
}

}  // namespace catalogador::wx
