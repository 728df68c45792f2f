#include "adapters/wx/appearance.h"

#include <wx/settings.h>
#ifdef __WXGTK__
#include <pango/pangocairo.h>

#include "adapters/wx/desktop_function.h"
#endif

#include <algorithm>
#include <array>
#include <cmath>

namespace catalogador::wx {

namespace {

constexpr int twipsPerPixel = twipsPerInch / 96;
constexpr double readableContrast = 4.5;

double luminance(const wxColour& colour) {
    const auto part = [](unsigned char value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.Red()) + 0.7152 * part(colour.Green()) +
           0.0722 * part(colour.Blue());
}

double contrast(const wxColour& one, const wxColour& other) {
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

bool isGrey(const wxColour& colour) {
    constexpr int tint = 16;
    const auto [least, most] = std::minmax({colour.Red(), colour.Green(), colour.Blue()});
    return most - least <= tint;
}

#ifdef __WXGTK__
// The toolkit of the desktop gives fields a height that is meant for fingers; its style sheet is
// the only way to change that.
constexpr const char* compactStyle =
    "entry { min-height: 0; padding: 0 3px; }"
    "checkbutton { min-height: 0; padding: 0; } checkbutton check { margin-left: 0; }"
    "toolbar { padding: 2px; } toolbar button { min-height: 22px; padding: 1px 5px; }";
#endif

}  // namespace

int pixelsOf(const wxWindow& window, int twips) {
    return window.FromDIP((twips + twipsPerPixel / 2) / twipsPerPixel);
}

int twipsOf(const wxWindow& window, int pixels) {
    return window.ToDIP(pixels) * twipsPerPixel;
}

wxColour colourOf(Color color) {
    if (!color.isSystem()) return {color.red(), color.green(), color.blue()};
    switch (color.value & 0xFFU) {
        case 0x05:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
        case 0x08:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
        case 0x0D:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT);
        case 0x0E:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT);
        case 0x10:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW);
        case 0x12:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT);
        default:
            return wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    }
}

wxColour readableOn(const wxColour& background, wxColour wanted) {
    constexpr int steps = 20;
    const bool towardsBlack = contrast(background, *wxBLACK) >= contrast(background, *wxWHITE);
    // A barely readable grey does not serve the users of high-contrast themes.
    if (contrast(background, wanted) < readableContrast && isGrey(wanted))
        return towardsBlack ? *wxBLACK : *wxWHITE;
    for (int step = 0; step < steps && contrast(background, wanted) < readableContrast; ++step)
        wanted = wanted.ChangeLightness(towardsBlack ? 85 : 115);
    if (contrast(background, wanted) >= readableContrast) return wanted;
    return towardsBlack ? *wxBLACK : *wxWHITE;
}

wxColour disabledOn(const wxColour& background, const wxColour& wanted) {
    constexpr int parts = 12;
    constexpr int usualParts = 8;
    // The edges of letters are paler than their colour.
    constexpr double legibleContrast = 3.5;
    const wxColour text = readableOn(background, wanted);
    const auto between = [](unsigned char from, unsigned char to, int part) {
        return static_cast<unsigned char>(from + (to - from) * part / parts);
    };
    for (int part = usualParts; part < parts; ++part) {
        const wxColour colour(between(background.Red(), text.Red(), part),
                              between(background.Green(), text.Green(), part),
                              between(background.Blue(), text.Blue(), part));
        if (contrast(background, colour) >= legibleContrast) return colour;
    }
    return text;
}

int statusHeight(const wxWindow& window) {
    constexpr int padding = 6;
    return window.GetCharHeight() + window.FromDIP(padding);
}

void useCompactFields() {
#ifdef __WXGTK__
    const auto newProvider = desktopFunction<void* (*)()>("gtk_css_provider_new");
    const auto load = desktopFunction<int (*)(void*, const char*, long, void*)>(
        "gtk_css_provider_load_from_data");
    const auto screen = desktopFunction<void* (*)()>("gdk_screen_get_default");
    const auto add = desktopFunction<void (*)(void*, void*, unsigned)>(
        "gtk_style_context_add_provider_for_screen");
    if (newProvider == nullptr || load == nullptr || screen == nullptr || add == nullptr) return;
    constexpr unsigned applicationPriority = 600;
    void* provider = newProvider();
    load(provider, compactStyle, -1, nullptr);
    if (void* display = screen()) add(display, provider, applicationPriority);
#endif
}

void startReadingFonts() {
#ifdef __WXGTK__
    // The map belongs to the library, which reads the settings of all fonts in a thread of its own.
    (void)pango_cairo_font_map_get_default();
#endif
}

}  // namespace catalogador::wx
