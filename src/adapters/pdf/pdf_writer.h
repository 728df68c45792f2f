#pragma once
#include <string>

#include "platform/printed_document.h"

namespace catalogador::pdf {

/// Writes the document as a PDF file, whole or not at all. Raises RuntimeError.
void writePdf(const PrintedDocument& document, const std::string& path);

}  // namespace catalogador::pdf
