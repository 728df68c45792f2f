#pragma once
#include <cairo.h>

#include <cstddef>

#include "platform/printed_document.h"

namespace catalogador::pdf {

/// Draws a page; one unit of the context is a twip, its origin the page's corner.
void drawPage(cairo_t* context, const PrintedDocument& document, std::size_t page);

}  // namespace catalogador::pdf
