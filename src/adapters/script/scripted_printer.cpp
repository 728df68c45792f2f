#include "adapters/script/scripted_printer.h"

#include "runtime/error.h"

namespace catalogador::script {

namespace {

Json textsOf(const PrintedPage& page) {
    Json texts = Json::array();
    for (const PrintedText& text : page.texts)
        texts.push_back({{"text", text.text},
                         {"x", text.place.left},
                         {"y", text.place.top},
                         {"align", text.align}});
    return {{"texts", std::move(texts)}};
}

}  // namespace

std::optional<PrinterChoice> ScriptedPrinter::setUp(Window& /*window*/) {
    std::optional<std::string> file = answers_.takePrint();
    transcript_.print({{"event", "dialog"}, {"kind", "print"}, {"answer", file ? "ok" : "cancel"}});
    if (!file) return std::nullopt;
    return PrinterChoice{{}, std::move(*file)};
}

void ScriptedPrinter::show(Window& /*window*/, const PrintedDocument& document,
                           const PrinterChoice& choice) {
    // Without a printer line the pages are only told.
    if (!choice.file.empty()) writePdf_(document, choice.file);
    Json pages = Json::array();
    for (const PrintedPage& page : document.pages) pages.push_back(textsOf(page));
    transcript_.print({{"event", "printed"}, {"path", choice.file}, {"pages", std::move(pages)}});
}

}  // namespace catalogador::script
