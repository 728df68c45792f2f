#pragma once
#include <wx/access.h>
#include <wx/window.h>

#include <string>

namespace catalogador::wx {

/// What a reader is told beside a field's name and value: that it must not be left empty, and why
/// what it holds was refused. Active Accessibility has no states for that.
wxString fieldDescription(bool required, const wxString& problem);

/// A native field as Active Accessibility knows it: the system's own object, but for the name and
/// the description.
class FieldAccessible : public wxAccessible {
  public:
    explicit FieldAccessible(wxWindow& field) : wxAccessible(&field) {}

    /// The object of a native field, which is made when it is first asked for and belongs to the
    /// field; null for a window that has an object of another kind.
    static FieldAccessible* of(wxWindow& field);

    void setName(const wxString& name) { name_ = name; }
    void setState(bool required, const wxString& problem);

    wxAccStatus GetName(int number, wxString* name) override;
    wxAccStatus GetDescription(int number, wxString* description) override;

  private:
    wxString name_;
    wxString description_;
};

}  // namespace catalogador::wx
