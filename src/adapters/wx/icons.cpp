#include "adapters/wx/icons.h"

namespace catalogador::wx {

wxBitmapBundle iconBundle(int number) {
    for (const IconText& icon : iconTexts())
        if (icon.number == number) return wxBitmapBundle::FromSVG(icon.svg, wxSize(16, 16));
    return {};
}

}  // namespace catalogador::wx
