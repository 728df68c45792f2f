#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/field_accessible_msw.h"

namespace catalogador::wx {

void nameForReaders(wxWindow& field, const wxString& name) {
    if (FieldAccessible* object = FieldAccessible::of(field))
        object->setName(name);
    else
        field.SetLabel(name);
}

void nameForReaders(wxToolBar& toolbar, const wxString& name,
                    const std::vector<wxString>& /*tools*/) {
    // Windows names a toolbar by its window's text, and a button without a caption by its tooltip.
    toolbar.SetLabel(name);
}

void tellState(wxWindow& field, bool required, const wxString& problem) {
    if (FieldAccessible* object = FieldAccessible::of(field)) object->setState(required, problem);
}

void readAsStatus(wxWindow& /*line*/) {
    // Readers read a text that stands by itself as one.
}

void readAsAlert(wxWindow& /*box*/, const wxString& /*text*/) {
    // The boxes of Windows are alerts already.
}

std::string readersName(const wxToolBar& toolbar) {
    return utf8Text(toolbar.GetLabel());
}

}  // namespace catalogador::wx
