#include "adapters/pdf/pdf_writer.h"

#include <cairo-pdf.h>

#include <memory>

#include "adapters/pdf/cairo_page.h"
#include "adapters/pdf/pango_layout.h"
#include "adapters/system/replaced_file.h"

namespace catalogador::pdf {

namespace {

constexpr double twipsPerPoint = 20;

void setColor(cairo_t* context, Color color) {
    constexpr double full = 255;
    cairo_set_source_rgb(context, color.red() / full, color.green() / full, color.blue() / full);
}

}  // namespace

void drawPage(cairo_t* context, const PrintedDocument& document, std::size_t page) {
    const PrintedPage& drawn = document.pages.at(page);
    for (const PrintedBox& box : drawn.boxes) {
        setColor(context, box.fill);
        cairo_rectangle(context, box.place.left, box.place.top, box.place.width, box.place.height);
        cairo_fill(context);
    }
    setColor(context, Color{0});
    const std::unique_ptr<PangoLayout, decltype(&g_object_unref)> layout(
        pango_cairo_create_layout(context), g_object_unref);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(pango_layout_get_context(layout.get()), options);
    cairo_font_options_destroy(options);
    std::size_t font = document.fonts.size();
    for (const PrintedText& text : drawn.texts) {
        if (text.font != font) setFont(layout.get(), document.fonts.at(text.font));
        font = text.font;
        pango_layout_set_text(layout.get(), text.text.data(), static_cast<int>(text.text.size()));
        cairo_move_to(context, text.place.left, text.place.top);
        pango_cairo_show_layout(context, layout.get());
    }
}

void writePdf(const PrintedDocument& document, const std::string& path) {
    system::ReplacedFile file(path);
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_pdf_surface_create(file.path().c_str(), document.setup.paper.width / twipsPerPoint,
                                 document.setup.paper.height / twipsPerPoint),
        cairo_surface_destroy);
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, document.title.c_str());
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context(cairo_create(surface.get()),
                                                                     cairo_destroy);
    cairo_scale(context.get(), 1 / twipsPerPoint, 1 / twipsPerPoint);
    for (std::size_t page = 0; page < document.pages.size(); ++page) {
        drawPage(context.get(), document, page);
        cairo_show_page(context.get());
    }
    cairo_surface_finish(surface.get());
    for (const cairo_status_t status :
         {cairo_status(context.get()), cairo_surface_status(surface.get())})
        if (status != CAIRO_STATUS_SUCCESS) file.fail(cairo_status_to_string(status));
    file.commit();
}

}  // namespace catalogador::pdf
