#include <cairo.h>
#include <wx/dc.h>

#include <cmath>

#include "adapters/pdf/cairo_page.h"
#include "adapters/wx/page_drawing.h"

namespace catalogador::wx {

bool drawPrintedPage(wxPrintout& printout, const PrintedDocument& document, std::size_t page) {
    constexpr double twipsPerPoint = 20;
    wxDC& dc = *printout.GetDC();
    auto* context = static_cast<cairo_t*>(dc.GetHandle());
    if (context == nullptr) return false;
    cairo_save(context);
    if (printout.IsPreview()) {
        printout.FitThisSizeToPaper({document.setup.paper.width, document.setup.paper.height});
        double scale = 1;
        dc.GetUserScale(&scale, &scale);
        cairo_identity_matrix(context);
        cairo_scale(context, scale, scale);
    } else {
        // What is printed is counted in points, whatever the desktop has scaled the context to.
        cairo_matrix_t given;
        cairo_get_matrix(context, &given);
        const double scale = 1 / (twipsPerPoint * std::hypot(given.xx, given.yx));
        cairo_scale(context, scale, scale);
    }
    pdf::drawPage(context, document, page);
    cairo_restore(context);
    return true;
}

}  // namespace catalogador::wx
