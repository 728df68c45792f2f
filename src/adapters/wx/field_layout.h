#pragma once
#include <wx/gdicmn.h>

#include <vector>

namespace catalogador::wx {

class FieldView;

/// Places the visible controls of a panel of that size in pixels, given in the order of the model:
/// where the model has them, but for what the font and long captions need. A row that needs more
/// height moves those below it down, and the list gives the height up. Captions break into lines
/// before they take more than half of the width from their fields; fields are as wide as their
/// texts can get, as far as the panel reaches.
void layOutFields(const std::vector<FieldView*>& views, const wxSize& panel);

}  // namespace catalogador::wx
