#pragma once
#include <wx/print.h>

#include <cstddef>

#include "platform/printed_document.h"

namespace catalogador::wx {

/// Draws a page of the document to where the printout goes, the preview or a printer. False when
/// nothing can be drawn there.
bool drawPrintedPage(wxPrintout& printout, const PrintedDocument& document, std::size_t page);

}  // namespace catalogador::wx
