#include <pango/pangocairo.h>
#include <wx/fontutil.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>

#include "adapters/wx/appearance.h"
#include "adapters/wx/cell_drawing.h"
#include "adapters/wx/desktop_function.h"

namespace catalogador::wx {

namespace {

PangoLayout* layoutOf(void* layout) {
    return static_cast<PangoLayout*>(layout);
}

/// With the desktop's settings for texts: the fonts that the fields have loaded serve the cells
/// too.
PangoLayout* newLayout(wxDC& dc, const wxWindow& window) {
    using Create = PangoLayout* (*)(void* widget, const char* text);
    if (const auto create = desktopFunction<Create>("gtk_widget_create_pango_layout"))
        return create(window.GetHandle(), nullptr);
    return pango_cairo_create_layout(static_cast<cairo_t*>(dc.GetHandle()));
}

void setColour(cairo_t* context, const wxColour& colour) {
    constexpr double full = 255;
    cairo_set_source_rgb(context, colour.Red() / full, colour.Green() / full, colour.Blue() / full);
}

/// The outline of a box with rounded corners.
void roundedBox(cairo_t* context, double width, double height, double radius) {
    constexpr double quarter = M_PI / 2;
    cairo_new_sub_path(context);
    cairo_arc(context, width - radius, radius, radius, -quarter, 0);
    cairo_arc(context, width - radius, height - radius, radius, 0, quarter);
    cairo_arc(context, radius, height - radius, radius, quarter, 2 * quarter);
    cairo_arc(context, radius, radius, radius, 2 * quarter, 3 * quarter);
    cairo_close_path(context);
}

}  // namespace

// The toolkit measures a text, looks for the place to cut it and draws it, each from nothing; a
// layout that is kept does it all at once, in a quarter of the time.
CellTexts::CellTexts(wxDC& dc, wxWindow& window) : dc_(dc), layout_(newLayout(dc, window)) {
    pango_layout_set_ellipsize(layoutOf(layout_), PANGO_ELLIPSIZE_END);
    pango_layout_set_single_paragraph_mode(layoutOf(layout_), TRUE);
    fontChanged();
}

CellTexts::~CellTexts() {
    g_object_unref(layout_);
}

void CellTexts::fontChanged() {
    pango_layout_set_font_description(layoutOf(layout_),
                                      dc_.GetFont().GetNativeFontInfo()->description);
}

void CellTexts::draw(std::string_view text, const wxRect& place, int side) {
    PangoLayout* layout = layoutOf(layout_);
    pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
    pango_layout_set_width(layout, place.width * PANGO_SCALE);
    if (wraps_) pango_layout_set_height(layout, place.height * PANGO_SCALE);
    // A text that runs from right to left begins at the right end of its width.
    PangoRectangle used;
    pango_layout_get_pixel_extents(layout, nullptr, &used);
    auto* context = static_cast<cairo_t*>(dc_.GetHandle());
    cairo_save(context);
    if (used.width > place.width) {
        cairo_rectangle(context, place.x, place.y, place.width, place.height);
        cairo_clip(context);
    }
    setColour(context, dc_.GetTextForeground());
    const int room = std::max(0, place.width - used.width);
    cairo_move_to(context, place.x + room * side / 2 - used.x,
                  place.y + (place.height - used.height) / 2);
    pango_cairo_show_layout(context, layout);
    cairo_restore(context);
}

// The desktop's own is drawn from its theme's files, and the first one makes the window wait for
// them as long as for some thousand rows.
void drawCheckBox(wxDC& dc, wxWindow& /*window*/, const wxSize& size, bool checked,
                  const wxColour& background) {
    auto* context = static_cast<cairo_t*>(dc.GetHandle());
    const wxColour mark =
        readableOn(background, wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    // The cell's own colour, not the theme's: the model fixes what the list stands on meanwhile.
    const wxColour& paper = background;
    const wxColour ink =
        readableOn(background, wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT));
    /// The share of the paper in the colour of the outline.
    constexpr double border = 0.45;
    cairo_save(context);
    cairo_translate(context, 0.5, 0.5);
    const double width = size.x - 1;
    const double height = size.y - 1;
    roundedBox(context, width, height, std::min(width, height) / 5);
    setColour(context, checked ? mark : paper);
    cairo_fill_preserve(context);
    const auto mixed = [&](unsigned char a, unsigned char b) {
        return wxColour::AlphaBlend(a, b, border);
    };
    setColour(context,
              checked ? mark.ChangeLightness(85)
                      : wxColour(mixed(paper.Red(), ink.Red()), mixed(paper.Green(), ink.Green()),
                                 mixed(paper.Blue(), ink.Blue())));
    cairo_set_line_width(context, 1);
    cairo_stroke(context);
    if (checked) {
        setColour(context,
                  readableOn(mark, wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT)));
        cairo_set_line_width(context, width / 7);
        cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
        cairo_move_to(context, width * 0.25, height * 0.52);
        cairo_line_to(context, width * 0.43, height * 0.70);
        cairo_line_to(context, width * 0.77, height * 0.32);
        cairo_stroke(context);
    }
    cairo_restore(context);
}

}  // namespace catalogador::wx
