#include "adapters/wx/accessible_names.h"

namespace catalogador::wx {

void tellState(wxWindow& /*field*/, bool /*required*/, const wxString& /*problem*/) {
    // The system's fields have no such states; the mark of a required field is part of its name.
}

void readAsStatus(wxWindow& /*line*/) {
    // A text that stands by itself is read as one.
}

}  // namespace catalogador::wx
