#pragma once
#include <functional>
#include <string>

#include "adapters/script/answers.h"
#include "adapters/script/transcript.h"
#include "platform/printer.h"

namespace catalogador::script {

using PdfWriter = std::function<void(const PrintedDocument& document, const std::string& path)>;

/// The printer of a played screen: its dialog is answered by the script, and what is printed goes
/// to a PDF file and into the transcript.
class ScriptedPrinter : public Printer {
  public:
    /// `fonts` must outlive the printer.
    ScriptedPrinter(const FontMeasure& fonts, PdfWriter writePdf, Transcript& transcript,
                    ScriptAnswers& answers)
        : fonts_(fonts),
          writePdf_(std::move(writePdf)),
          transcript_(transcript),
          answers_(answers) {}

    std::optional<PrinterChoice> setUp(Window& window) override;
    void show(Window& window, const PrintedDocument& document,
              const PrinterChoice& choice) override;
    [[nodiscard]] const FontMeasure& fonts() const override { return fonts_; }

  private:
    const FontMeasure& fonts_;
    PdfWriter writePdf_;
    Transcript& transcript_;
    ScriptAnswers& answers_;
};

}  // namespace catalogador::script
