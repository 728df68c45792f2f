#pragma once
#include <pango/pangocairo.h>

#include "platform/printed_document.h"

namespace catalogador::pdf {

/// Makes a layout write in that font; one unit is a twip.
void setFont(PangoLayout* layout, const PrintFont& font);

}  // namespace catalogador::pdf
