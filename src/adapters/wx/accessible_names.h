#pragma once
#include <wx/toolbar.h>

#include <string>
#include <vector>

namespace catalogador::wx {

/// What screen readers call a field whose caption stands in a label of its own.
void nameForReaders(wxWindow& field, const wxString& name);
/// What screen readers and the like call a toolbar and each of its tools, separators included;
/// empty for those that have a name of their own.
void nameForReaders(wxToolBar& toolbar, const wxString& name, const std::vector<wxString>& tools);
/// Tells them whether a field must not be left empty and why what it holds was refused; an empty
/// text where it was not.
void tellState(wxWindow& field, bool required, const wxString& problem);
/// Has them know a line of text as the window's status.
void readAsStatus(wxWindow& line);
/// Has them read a box at once when it is shown.
void readAsAlert(wxWindow& box, const wxString& text);
/// What they call it.
std::string readersName(const wxToolBar& toolbar);

}  // namespace catalogador::wx
