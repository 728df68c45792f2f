#pragma once
#include <wx/bmpbndl.h>

#include <vector>

namespace catalogador::wx {

/// A picture by its number, as SVG text.
struct IconText {
    int number;
    const char* svg;
};
const std::vector<IconText>& iconTexts();

/// The picture at 16 x 16 and sharp at every scale; an empty bundle for an unknown number.
wxBitmapBundle iconBundle(int number);

}  // namespace catalogador::wx
