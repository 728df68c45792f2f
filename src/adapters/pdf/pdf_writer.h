#pragma once
#include <cairo.h>

#include <cstddef>
#include <string>

#include "platform/printing/printed_document.h"

namespace catalogador {

/// Draws a page; one unit of the context is a twip, its origin the page's corner.
void drawPage(cairo_t* context, const PrintedDocument& document, std::size_t page);

/// Writes the document as a PDF file, whole or not at all. Raises RuntimeError.
void writePdf(const PrintedDocument& document, const std::string& path);

}  // namespace catalogador
