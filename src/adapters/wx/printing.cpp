#include "adapters/wx/printing.h"

#include <wx/evtloop.h>
#include <wx/print.h>
#include <wx/printdlg.h>
#include <wx/utils.h>

#include <cmath>

#include "adapters/pdf/pdf_writer.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/page_drawing.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/wx_surface.h"
#include "runtime/error.h"

namespace catalogador::wx {

namespace {

constexpr double twipsPerMillimetre = 1440 / 25.4;
constexpr double previewShareOfScreen = 0.85;

int twipsOfMillimetres(int millimetres) {
    return static_cast<int>(std::lround(millimetres * twipsPerMillimetre));
}

int millimetresOf(int twips) {
    return static_cast<int>(std::lround(twips / twipsPerMillimetre));
}

/// While it lives, the pointer is not the hourglass of the work that has opened the dialog.
class UsualPointer {
  public:
    UsualPointer() {
        for (; wxIsBusy(); ++ended_) wxEndBusyCursor();
    }
    ~UsualPointer() {
        for (; ended_ > 0; --ended_) wxBeginBusyCursor();
    }
    UsualPointer(const UsualPointer&) = delete;
    UsualPointer& operator=(const UsualPointer&) = delete;

  private:
    int ended_ = 0;
};

/// Hands the pages of a document to the toolkit's preview and printing.
class Printout : public wxPrintout {
  public:
    explicit Printout(const PrintedDocument& document)
        : wxPrintout(wxText(document.title)), document_(document) {}

    bool HasPage(int page) override {
        return page >= 1 && page <= static_cast<int>(document_.pages.size());
    }
    void GetPageInfo(int* first, int* last, int* from, int* to) override {
        *first = *from = 1;
        *last = *to = static_cast<int>(document_.pages.size());
    }
    bool OnPrintPage(int page) override {
        if (!HasPage(page)) return false;
        return drawPrintedPage(*this, document_, static_cast<std::size_t>(page - 1));
    }

  private:
    const PrintedDocument& document_;
};

/// Closes its loop together with itself.
class PreviewWindow : public wxPreviewFrame {
  public:
    PreviewWindow(wxPrintPreview* preview, wxWindow* parent, const wxString& title,
                  wxGUIEventLoop& loop)
        : wxPreviewFrame(preview, parent, title), loop_(loop) {
        Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
            if (event.GetKeyCode() == WXK_ESCAPE)
                Close();
            else
                event.Skip();
        });
        Bind(wxEVT_DESTROY, [this](wxWindowDestroyEvent& event) {
            if (event.GetEventObject() == this) loop_.ScheduleExit();
            event.Skip();
        });
    }

  private:
    wxGUIEventLoop& loop_;
};

}  // namespace

WxPrinter::WxPrinter(WxSurface& surface) : surface_(surface) {
    const PageSetup usual;
    setup_.SetMarginTopLeft({millimetresOf(usual.left), millimetresOf(usual.top)});
    setup_.SetMarginBottomRight({millimetresOf(usual.right), millimetresOf(usual.bottom)});
    setup_.SetPaperId(wxPAPER_A4);
}

std::optional<PrinterChoice> WxPrinter::setUp(Window& window) {
    const UsualPointer arrow;
    wxPageSetupDialog dialog(surface_.nativeWindow(window), &setup_);
    if (dialog.ShowModal() != wxID_OK) return std::nullopt;
    setup_ = dialog.GetPageSetupData();
    setup_.SetPaperId(setup_.GetPrintData().GetPaperId());
    setup_.CalculatePaperSizeFromId();
    PrinterChoice choice;
    wxSize paper = setup_.GetPaperSize();
    if (setup_.GetPrintData().GetOrientation() == wxLANDSCAPE && paper.x < paper.y)
        std::swap(paper.x, paper.y);
    choice.page.paper = {twipsOfMillimetres(paper.x), twipsOfMillimetres(paper.y)};
    choice.page.left = twipsOfMillimetres(setup_.GetMarginTopLeft().x);
    choice.page.top = twipsOfMillimetres(setup_.GetMarginTopLeft().y);
    choice.page.right = twipsOfMillimetres(setup_.GetMarginBottomRight().x);
    choice.page.bottom = twipsOfMillimetres(setup_.GetMarginBottomRight().y);
    return choice;
}

void WxPrinter::show(Window& window, const PrintedDocument& document, const PrinterChoice& choice) {
    if (!choice.file.empty()) return pdf::writePdf(document, choice.file);
    const UsualPointer arrow;
    wxPrintDialogData data(setup_.GetPrintData());
    auto* preview = new wxPrintPreview(new Printout(document), new Printout(document), &data);
    if (!preview->IsOk()) {
        delete preview;
        throw RuntimeError(error_number::invalidProcedureCall,
                           "The preview cannot be shown; check the printers of this desk");
    }
    wxWindow* parent = surface_.nativeWindow(window);
    wxGUIEventLoop loop;
    auto* shown = new PreviewWindow(preview, parent, wxText(document.title), loop);
    const wxSize screen = wxGetDisplaySize();
    shown->SetSize(wxSize(static_cast<int>(screen.x * previewShareOfScreen * 0.7),
                          static_cast<int>(screen.y * previewShareOfScreen)));
    shown->CentreOnScreen();
    shown->InitializeWithModality(wxPreviewFrame_AppModal);
    shown->Show();
    shown->Raise();
    preview->GetCanvas()->SetFocus();
    ++modalLoopsBegun;
    loop.Run();
}

}  // namespace catalogador::wx
