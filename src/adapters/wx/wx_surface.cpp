#include "adapters/wx/wx_surface.h"

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/progdlg.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>
#ifdef __WXMSW__
#include <wx/msw/private.h>
#endif

#include <algorithm>
#include <cstdlib>

#include "adapters/wx/appearance.h"
#include "adapters/wx/desktop_texts.h"
#include "adapters/wx/host_windows.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/toolkit_texts.h"
#include "platform/controls/window.h"
#include "runtime/error.h"

namespace catalogador::wx {

namespace {

/// The toolkit's application object; it leaves the command line to the program.
class ScreenApplication : public wxApp {
  public:
    bool OnInit() override { return true; }
    bool OnExceptionInMainLoop() override { throw; }
};

class DialogCount : public wxModalDialogHook {
  protected:
    int Enter(wxDialog* /*dialog*/) override {
        ++modalLoopsBegun;
        return wxID_NONE;
    }
};

/// What the toolkit's start would change for the whole process, which may be another program's.
class HostSettings {
  public:
#ifdef __WXMSW__
    HostSettings() : errorMode_(GetErrorMode()) {
        wxSetInstance(ownInstance());
    }
    ~HostSettings() {
        SetErrorMode(errorMode_);
    }
    HostSettings(const HostSettings&) = delete;
    HostSettings& operator=(const HostSettings&) = delete;

  private:
    /// Windows and pictures belong to the library that this code is part of.
    static HINSTANCE ownInstance() {
        HMODULE module = nullptr;
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&ownInstance), &module);
        return module;
    }

    UINT errorMode_;
#else
    HostSettings() {}
#endif
};

void startToolkit() {
#ifdef __WXGTK__
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        throw RuntimeError(error_number::cannotCreateObject,
                           "There is no display; run the program in a desktop session or with "
                           "xvfb-run");
#endif
    static char name[] = "catalogador";
    static char* arguments[] = {name, nullptr};
    int count = 1;
    // The toolkit writes its complaint to the log; the error raised below is the message.
    const wxLogNull quiet;
    const HostSettings host;
    wxApp::SetInstance(new ScreenApplication);
    if (!wxEntryStart(count, arguments))
        throw RuntimeError(error_number::cannotCreateObject, "The display cannot be opened");
    wxTheApp->SetAppName("catalogador");
    wxTheApp->SetExitOnFrameDelete(false);
    startReadingFonts();
    useCompactFields();
    static DialogCount dialogs;
    dialogs.Register();
}

}  // namespace

WxSurface::WxSurface(std::int16_t language) : language_(language) {
    startToolkit();
    speakToolkitTexts(languageCode(language_));
}

void WxSurface::speak(std::uint8_t language) {
    if (language == language_) return;
    language_ = language;
    speakToolkitTexts(languageCode(language_));
}

WxSurface::~WxSurface() {
    wxEntryCleanup();
}

ScreenFrame* WxSurface::frameOf(const Window& window) const {
    const auto found = std::find_if(frames_.begin(), frames_.end(), [&](const ScreenFrame* frame) {
        return &frame->window() == &window;
    });
    return found == frames_.end() ? nullptr : *found;
}

wxWindow* WxSurface::nativeWindow(const Window& window) const {
    return frameOf(window);
}

ScreenFrame* WxSurface::topFrame() const {
    return frames_.empty() ? nullptr : frames_.back();
}

void WxSurface::open(Window& window) {
    frames_.push_back(new ScreenFrame(window, topFrame()));
}

void WxSurface::showModal(Window& window) {
    ++modalLoopsBegun;
    ScreenFrame* frame = frameOf(window);
    pointerChanged(0);
    if (!runner_) frame->placeForUser(memory_);
    frame->sync();
    const wxWindowDisabler others(frame);
    const HostWindowsDisabled host(*frame);
    frame->Show();
    frame->Raise();
    frame->takeFocus();
    if (runner_) {
        processEvents();
        runner_(window);
    } else {
        const DesktopTexts texts(languageCode(language_));
        frame->runLoop();
        frame->keepSize(memory_);
    }
}

void WxSurface::close(Window& window) {
    ScreenFrame* frame = frameOf(window);
    std::erase(frames_, frame);
    frame->Hide();
    frame->release();
    if (ScreenFrame* below = topFrame(); below != nullptr && below->IsShown()) {
        below->Enable();
        below->Raise();
        below->takeFocus();
    }
}

void WxSurface::windowChanged(Window& window) {
    if (ScreenFrame* frame = frameOf(window)) frame->applyWindow();
}

void WxSurface::controlChanged(Window& window, Control& control) {
    if (ScreenFrame* frame = frameOf(window)) frame->controlChanged(control);
}

void WxSurface::commandBarsChanged(Window& window) {
    if (ScreenFrame* frame = frameOf(window)) frame->barsChanged();
}

void WxSurface::focusChanged(Window& window) {
    if (ScreenFrame* frame = frameOf(window)) frame->focusChanged();
}

void WxSurface::pointerChanged(int pointer) {
    if (pointer == pointer_) return;
    pointer_ = pointer;
    if (pointer != 0)
        wxBeginBusyCursor();
    else if (wxIsBusy())
        wxEndBusyCursor();
}

void WxSurface::syncAll() {
    for (ScreenFrame* frame : frames_) frame->sync();
}

bool WxSurface::progress(Window& window, int done, int total) {
    // Milliseconds; drawing each step would take longer than the work.
    const wxLongLong shownAfter = 1000;
    const wxLongLong betweenSteps = 50;
    if (done == total) {
        endProgress();
        return true;
    }
    if (progressBegan_ == 0) {
        progressBegan_ = wxGetUTCTimeMillis();
        if (ScreenFrame* frame = frameOf(window)) frame->prepare();
    }
    const wxLongLong now = wxGetUTCTimeMillis();
    if (now - progressBegan_ < (progress_ ? nextProgress_ : shownAfter)) return true;
    nextProgress_ = now - progressBegan_ + betweenSteps;
    const bool known = total != unknownTotal;
    const wxString text =
        known ? wxString::Format("%d / %d", done, total) : wxString::Format("%d", done);
    if (!progress_)
        progress_ = std::make_unique<wxProgressDialog>(
            wxText(window.caption()), text, known ? total : 1, nativeWindow(window),
            wxPD_APP_MODAL | wxPD_CAN_ABORT | (known ? wxPD_REMAINING_TIME : 0));
    if (known ? progress_->Update(done, text) : progress_->Pulse(text)) return true;
    endProgress();
    return false;
}

void WxSurface::endProgress() {
    progress_.reset();
    progressBegan_ = 0;
}

int WxSurface::messageBox(const std::string& text, int style, const std::string& title) {
    endProgress();
    syncAll();
    const ScreenFrame* frame = topFrame();
    return showMessageBox(topFrame(), text, style, title,
                          frame == nullptr ? wxRect() : frame->selectedRowOnScreen());
}

void WxSurface::errorBox(const ErrorNotice& error) {
    endProgress();
    syncAll();
    showErrorBox(topFrame(), error);
}

std::optional<SaveChoice> WxSurface::saveDialog(const SaveDialog& dialog) {
    syncAll();
    return showSaveDialog(topFrame(), dialog);
}

void WxSurface::showMenu(Window& window, const Menu& menu) {
    if (ScreenFrame* frame = frameOf(window)) frame->popupLater(menu);
}

void WxSurface::copyText(const std::string& text) {
    const wxClipboardLocker locked;
    if (!locked) return;
    wxTheClipboard->SetData(new wxTextDataObject(wxText(text)));
    // Without that the text would go away with the program.
    wxTheClipboard->Flush();
}

int WxSurface::textWidth(std::string_view text) const {
    const ScreenFrame* frame = topFrame();
    if (frame == nullptr) return 0;
    int width = 0;
    int height = 0;
    frame->GetTextExtent(wxText(text), &width, &height);
    return twipsOf(*frame, width);
}

Rect WxSurface::monitorOf(const Window& window) const {
    const ScreenFrame* frame = frameOf(window);
    if (frame == nullptr) return {};
    // A window that is not shown yet has no place of its own; it comes up over the one below.
    const wxWindow* placed = frame->IsShown() || frame->GetParent() == nullptr
                                 ? static_cast<const wxWindow*>(frame)
                                 : frame->GetParent();
    const int monitor = wxDisplay::GetFromWindow(placed);
    const wxRect area = monitor == wxNOT_FOUND
                            ? wxDisplay().GetGeometry()
                            : wxDisplay(static_cast<unsigned>(monitor)).GetGeometry();
    return {twipsOf(*frame, area.x), twipsOf(*frame, area.y), twipsOf(*frame, area.width),
            twipsOf(*frame, area.height)};
}

Rect WxSurface::clientRect(const Window& window) const {
    const ScreenFrame* frame = frameOf(window);
    return frame == nullptr ? Rect{} : frame->clientRect();
}

void WxSurface::settle(Window& window) {
    constexpr long longest = 1000;
    constexpr unsigned long betweenLooks = 5;
    const wxStopWatch waited;
    for (;;) {
        processEvents();
        const ScreenFrame* frame = frameOf(window);
        if (frame == nullptr || frame->isSettled() || waited.Time() > longest) return;
        wxMilliSleep(betweenLooks);
    }
}

void WxSurface::beep() {
    wxBell();
}

void WxSurface::processEvents() {
    syncAll();
    if (wxEventLoopBase* active = wxEventLoopBase::GetActive()) {
        active->YieldFor(wxEVT_CATEGORY_ALL);
    } else {
        wxGUIEventLoop loop;
        const wxEventLoopActivator activate(&loop);
        for (int round = 0; round < 200 && loop.Pending(); ++round) loop.Dispatch();
        loop.ProcessIdle();
    }
    syncAll();
}

std::vector<std::string> WxSurface::differences(Window& window) {
    ScreenFrame* frame = frameOf(window);
    if (frame == nullptr) return {"the window has no frame"};
    frame->sync();
    return frame->differences();
}

}  // namespace catalogador::wx
