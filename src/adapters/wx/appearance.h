#pragma once
#include <wx/colour.h>
#include <wx/string.h>
#include <wx/window.h>

#include <string>
#include <string_view>

#include "platform/geometry.h"

namespace catalogador::wx {

inline wxString wxText(std::string_view text) {
    return wxString::FromUTF8(text.data(), text.size());
}
inline std::string utf8Text(const wxString& text) {
    return std::string(text.utf8_str());
}

/// Twips and pixels of the screen that a window is on.
int pixelsOf(const wxWindow& window, int twips);
int twipsOf(const wxWindow& window, int pixels);

/// The colour of the model, the desktop's own where it names one.
wxColour colourOf(Color color);
/// `wanted`, or a darker or lighter shade of it where it could not be read on that background;
/// black or white for a grey.
wxColour readableOn(const wxColour& background, wxColour wanted);

/// The same for a text that is shown as one of something disabled: fainter, and still readable.
wxColour disabledOn(const wxColour& background, const wxColour& wanted);

/// Height in pixels of the line under the list, which takes it from the list's place.
int statusHeight(const wxWindow& window);
/// How far from the window's edge it begins, in pixels at 96 dpi.
constexpr int statusIndent = 6;

/// Makes the native fields low enough for the rows that the layout gives them.
void useCompactFields();

/// Has the desktop's fonts looked up beside what comes before the first text is shown; it takes as
/// long as reading some thousand rows.
void startReadingFonts();

}  // namespace catalogador::wx
