// Prints the colour of the desktop's shadows as "#RRGGBB": what the list's lines are drawn in.
#include <wx/app.h>
#include <wx/settings.h>

#include <iostream>

int main(int argc, char** argv) {
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv)) return 1;
    const wxColour shadow = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW);
    std::cout << shadow.GetAsString(wxC2S_HTML_SYNTAX).utf8_str().data() << "\n";
    wxEntryCleanup();
    return 0;
}
