#pragma once
#include <pango/pangocairo.h>

#include "platform/printed_document.h"

namespace catalogador::pdf {

/// Measures texts as they are drawn on paper, without a display. A font that the system does not
/// have is replaced by the nearest one it has.
class PangoFonts : public FontMeasure {
  public:
    PangoFonts();
    ~PangoFonts() override;
    PangoFonts(const PangoFonts&) = delete;
    PangoFonts& operator=(const PangoFonts&) = delete;

    [[nodiscard]] int width(std::string_view text, const PrintFont& font) const override;
    [[nodiscard]] int lineHeight(const PrintFont& font) const override;

  private:
    PangoLayout* layout_;
};

}  // namespace catalogador::pdf
