#include <wx/control.h>
#include <wx/renderer.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/cell_drawing.h"

namespace catalogador::wx {

CellTexts::CellTexts(wxDC& dc, wxWindow& /*window*/) : dc_(dc) {}

CellTexts::~CellTexts() = default;

void CellTexts::fontChanged() {}

void CellTexts::draw(std::string_view text, const wxRect& place, int side) {
    wxString line = wxText(text);
    wxSize size = dc_.GetTextExtent(line);
    if (size.x > place.width) {
        line =
            wxControl::Ellipsize(line, dc_, wxELLIPSIZE_END, place.width, wxELLIPSIZE_FLAGS_NONE);
        size = dc_.GetTextExtent(line);
    }
    const int room = std::max(0, place.width - size.x);
    const int top = place.y + (place.height - size.y) / 2;
    if (size.x <= place.width) {
        dc_.DrawText(line, place.x + room * side / 2, top);
        return;
    }
    const wxDCClipper clip(dc_, place);
    dc_.DrawText(line, place.x, top);
}

void drawCheckBox(wxDC& dc, wxWindow& window, const wxSize& size, bool checked,
                  const wxColour& /*background*/) {
    wxRendererNative::Get().DrawCheckBox(&window, dc, wxRect(size),
                                         checked ? static_cast<int>(wxCONTROL_CHECKED) : 0);
}

}  // namespace catalogador::wx
