#include "adapters/pdf/pango_fonts.h"

#include "adapters/pdf/pango_layout.h"
#include "adapters/pdf/paper_fonts.h"

namespace catalogador::pdf {

namespace {

constexpr double twipsPerPoint = 20;

int twipsOf(int pangoUnits) {
    return (pangoUnits + PANGO_SCALE - 1) / PANGO_SCALE;
}

}  // namespace

void setFont(PangoLayout* layout, const PrintFont& font) {
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, font.name.c_str());
    pango_font_description_set_weight(description,
                                      font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_absolute_size(description,
                                             font.points * twipsPerPoint * PANGO_SCALE);
    pango_layout_set_font_description(layout, description);
    pango_font_description_free(description);
    PangoAttrList* attributes = pango_attr_list_new();
    pango_attr_list_insert(attributes, pango_attr_font_features_new("kern=0, liga=0, clig=0"));
    pango_layout_set_attributes(layout, attributes);
    pango_attr_list_unref(attributes);
}

std::unique_ptr<FontMeasure> paperFonts() {
    return std::make_unique<PangoFonts>();
}

PangoFonts::PangoFonts() {
    PangoContext* context = pango_font_map_create_context(pango_cairo_font_map_get_default());
    cairo_font_options_t* options = cairo_font_options_create();
    // Paper has no pixels that glyphs would have to be moved to.
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    layout_ = pango_layout_new(context);
    g_object_unref(context);
}

PangoFonts::~PangoFonts() {
    g_object_unref(layout_);
}

int PangoFonts::width(std::string_view text, const PrintFont& font) const {
    setFont(layout_, font);
    pango_layout_set_text(layout_, text.data(), static_cast<int>(text.size()));
    int width = 0;
    pango_layout_get_size(layout_, &width, nullptr);
    return twipsOf(width);
}

int PangoFonts::lineHeight(const PrintFont& font) const {
    setFont(layout_, font);
    pango_layout_set_text(layout_, "Ág", -1);
    int height = 0;
    pango_layout_get_size(layout_, nullptr, &height);
    return twipsOf(height);
}

}  // namespace catalogador::pdf
