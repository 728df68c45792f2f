#pragma once
#include <wx/cmndata.h>

#include <memory>

#include "adapters/pdf/paper_fonts.h"
#include "platform/printer.h"

namespace catalogador::wx {

class WxSurface;

/// The printers of the desktop, with a preview window. The surface must outlive it.
class WxPrinter : public Printer {
  public:
    explicit WxPrinter(WxSurface& surface);

    std::optional<PrinterChoice> setUp(Window& window) override;
    void show(Window& window, const PrintedDocument& document,
              const PrinterChoice& choice) override;
    [[nodiscard]] const FontMeasure& fonts() const override { return *fonts_; }

  private:
    WxSurface& surface_;
    std::unique_ptr<FontMeasure> fonts_ = pdf::paperFonts();
    /// What was chosen last is offered again.
    wxPageSetupDialogData setup_;
};

}  // namespace catalogador::wx
