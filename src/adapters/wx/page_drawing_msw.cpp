#include <wx/dc.h>
#include <wx/font.h>

#include <cmath>

#include "adapters/wx/appearance.h"
#include "adapters/wx/page_drawing.h"

namespace catalogador::wx {

namespace {

/// One unit of the device context is a twip.
wxFont fontOf(const PrintFont& font) {
    constexpr double twipsPerPoint = 20;
    const int height = static_cast<int>(std::lround(font.points * twipsPerPoint));
    return wxFont(wxFontInfo(wxSize(0, height)).FaceName(wxText(font.name)).Bold(font.bold));
}

}  // namespace

bool drawPrintedPage(wxPrintout& printout, const PrintedDocument& document, std::size_t page) {
    wxDC& dc = *printout.GetDC();
    printout.FitThisSizeToPaper({document.setup.paper.width, document.setup.paper.height});
    const PrintedPage& drawn = document.pages.at(page);
    dc.SetPen(*wxTRANSPARENT_PEN);
    for (const PrintedBox& box : drawn.boxes) {
        dc.SetBrush(wxBrush(colourOf(box.fill)));
        dc.DrawRectangle(box.place.left, box.place.top, box.place.width, box.place.height);
    }
    dc.SetTextForeground(*wxBLACK);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    std::size_t font = document.fonts.size();
    for (const PrintedText& text : drawn.texts) {
        if (text.font != font) dc.SetFont(fontOf(document.fonts.at(text.font)));
        font = text.font;
        dc.DrawText(wxText(text.text), text.place.left, text.place.top);
    }
    return true;
}

}  // namespace catalogador::wx
