#include "adapters/wx/field_accessible_msw.h"

#include "adapters/wx/appearance.h"
#include "adapters/wx/window_texts.h"

namespace catalogador::wx {

wxString fieldDescription(bool required, const wxString& problem) {
    if (!required) return problem;
    const wxString mark = wxText(windowText(message::requiredField));
    return problem.empty() ? mark : mark + ". " + problem;
}

FieldAccessible* FieldAccessible::of(wxWindow& field) {
    if (field.GetAccessible() == nullptr) field.SetAccessible(new FieldAccessible(field));
    return dynamic_cast<FieldAccessible*>(field.GetAccessible());
}

void FieldAccessible::setState(bool required, const wxString& problem) {
    const wxString description = fieldDescription(required, problem);
    if (description == description_) return;
    description_ = description;
    NotifyEvent(wxACC_EVENT_OBJECT_DESCRIPTIONCHANGE, GetWindow(), wxOBJID_CLIENT, wxACC_SELF);
}

wxAccStatus FieldAccessible::GetName(int number, wxString* name) {
    if (number != 0 || name_.empty()) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
}

wxAccStatus FieldAccessible::GetDescription(int number, wxString* description) {
    if (number != 0) return wxACC_NOT_IMPLEMENTED;
    *description = description_;
    return wxACC_OK;
}

}  // namespace catalogador::wx
