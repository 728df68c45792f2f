#pragma once
#include <optional>
#include <string>

#include "platform/printed_document.h"

namespace catalogador {

class Window;

/// What the user chose in the printer's set-up dialog.
struct PrinterChoice {
    PageSetup page;
    /// Path of the PDF file to print to; empty for the preview and a printer.
    std::string file;
};

/// The printers of the machine that runs the program.
class Printer {
  public:
    virtual ~Printer() = default;
    /// The set-up dialog; nullopt when the user cancels. Raises RuntimeError.
    virtual std::optional<PrinterChoice> setUp(Window& window) = 0;
    /// Shows the document in a preview, from where it is printed, or writes it to the chosen file.
    /// Raises RuntimeError.
    virtual void show(Window& window, const PrintedDocument& document,
                      const PrinterChoice& choice) = 0;
    /// How large texts are on paper.
    [[nodiscard]] virtual const FontMeasure& fonts() const = 0;
};

}  // namespace catalogador
