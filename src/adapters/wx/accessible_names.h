#pragma once
#include <wx/toolbar.h>

#include <string>
#include <vector>

namespace catalogador {

/// What screen readers call a field whose caption stands in a label of its own.
void nameForReaders(wxWindow& field, const wxString& name);
/// What screen readers and the like call a toolbar and each of its tools, separators included;
/// empty for those that have a name of their own.
void nameForReaders(wxToolBar& toolbar, const wxString& name, const std::vector<wxString>& tools);
/// Has them read a box at once when it is shown.
void readAsAlert(wxWindow& box, const wxString& text);
/// What they call it.
std::string readersName(const wxToolBar& toolbar);

}  // namespace catalogador
