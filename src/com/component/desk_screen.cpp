#include "com/component/desk_screen.h"

#include <utility>

#include "adapters/services/window_sizes.h"
#include "adapters/system/desk.h"
#include "adapters/system/wide_text.h"
#include "adapters/wx/window_texts.h"
#include "com/automation/com_api.h"
#include "com/automation/library.h"
#include "platform/services.h"
#include "runtime/error.h"

namespace catalogador::com {

namespace {

constexpr int hourglass = 11;

/// While it lives, the next box of the system that this thread shows has buttons with these labels
/// in the place of the desktop's own.
class LabelledButtons {
  public:
    explicit LabelledButtons(const wx::BoxLabels& labels)
        : hook_(SetWindowsHookExW(WH_CBT, label, nullptr, GetCurrentThreadId())) {
        shown = &labels;
    }
    ~LabelledButtons() {
        UnhookWindowsHookEx(hook_);
        shown = nullptr;
    }
    LabelledButtons(const LabelledButtons&) = delete;
    LabelledButtons& operator=(const LabelledButtons&) = delete;

  private:
    static LRESULT CALLBACK label(int code, WPARAM wparam, LPARAM lparam) {
        if (code == HCBT_ACTIVATE && shown != nullptr) {
            const auto window = reinterpret_cast<HWND>(wparam);
            // A box with one button gives it the number of a cancel.
            for (const auto& [button, text] :
                 {std::pair{IDYES, shown->yes}, std::pair{IDNO, shown->no},
                  std::pair{IDOK, shown->ok}, std::pair{IDCANCEL, shown->ok}})
                SetDlgItemTextW(window, button, system::wideOf(text).c_str());
        }
        return CallNextHookEx(nullptr, code, wparam, lparam);
    }

    static thread_local const wx::BoxLabels* shown;
    HHOOK hook_;
};
thread_local const wx::BoxLabels* LabelledButtons::shown = nullptr;

}  // namespace

DeskScreen& DeskScreen::instance() {
    // Never destroyed: when the process ends, the system has closed the windows before.
    static auto& screen = *new DeskScreen;
    return screen;
}

bool DeskScreen::isOnItsThread() const {
    return screen_ && thread_ == GetCurrentThreadId();
}

int DeskScreen::systemBox(const std::string& text, unsigned style, const std::string& title) const {
    const wx::BoxLabels labels = wx::boxLabels();
    const LabelledButtons labelled(labels);
    return MessageBoxW(nullptr, system::wideOf(text).c_str(), system::wideOf(title).c_str(),
                       style | MB_TASKMODAL | MB_SETFOREGROUND);
}

void DeskScreen::speak(std::uint8_t language) {
    language_ = language;
    if (isOnItsThread()) screen().speak(language);
}

void DeskScreen::showHelp(Window& window, int command, std::int32_t data) {
    screen_->showHelp(window, command, data);
}

void DeskScreen::open(Window& window) {
    if (screen_ && !isOnItsThread())
        throw RuntimeError(error_number::invalidProcedureCall,
                           "The screen was opened on another thread of this program; open it "
                           "there again");
    if (!screen_) {
        library_use::stay();
        screen_ = desktop::realScreen(language_);
        screen_->rememberSizes(services::windowMemoryOf(system::systemUser()));
        thread_ = GetCurrentThreadId();
    }
    screen().open(window);
}

void DeskScreen::pointerChanged(int pointer) {
    if (isOnItsThread()) return screen().pointerChanged(pointer);
    SetCursor(LoadCursorW(nullptr, pointer == hourglass ? IDC_WAIT : IDC_ARROW));
}

int DeskScreen::messageBox(const std::string& text, int style, const std::string& title) {
    if (isOnItsThread()) return screen().messageBox(text, style, title);
    return systemBox(text, static_cast<UINT>(style), title);
}

void DeskScreen::errorBox(const ErrorNotice& error) {
    if (isOnItsThread()) return screen().errorBox(error);
    std::string whole;
    for (const std::string* part : {&error.task, &error.text, &error.detail}) {
        if (part->empty()) continue;
        if (!whole.empty()) whole += "\r\n\r\n";
        whole += *part;
    }
    const bool both = !error.title.empty() && !error.context.empty();
    systemBox(whole, MB_ICONERROR | MB_OK, error.title + (both ? " - " : "") + error.context);
}

}  // namespace catalogador::com
