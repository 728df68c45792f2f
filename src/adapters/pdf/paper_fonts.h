#pragma once
#include <memory>

#include "platform/printed_document.h"

namespace catalogador::pdf {

/// Measures texts as they are drawn on paper, with what this system has for that.
std::unique_ptr<FontMeasure> paperFonts();

}  // namespace catalogador::pdf
