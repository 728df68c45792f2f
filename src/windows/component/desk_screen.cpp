#include "windows/component/desk_screen.h"

#include "adapters/com/com_api.h"
#include "adapters/com/library.h"
#include "adapters/desk/wide_text.h"
#include "modules/modLenguaje.h"
#include "platform/services.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

constexpr int hourglass = 11;

/// Number at the end of the language library's name, which is the language that the texts have.
std::int16_t loadedLanguage() {
    const std::string& library = currentLanguageLibrary();
    const std::size_t number = library.find_last_of('_');
    constexpr double spanish = 1;
    const double language =
        number == std::string::npos ? spanish : leadingNumber(library.substr(number + 1));
    return static_cast<std::int16_t>(language);
}

int systemBox(const std::string& text, UINT style, const std::string& title) {
    return MessageBoxW(nullptr, wideOf(text).c_str(), wideOf(title).c_str(),
                       style | MB_TASKMODAL | MB_SETFOREGROUND);
}

}  // namespace

DeskScreen& DeskScreen::instance() {
    // Never destroyed: when the process ends, the system has closed the windows before.
    static auto& screen = *new DeskScreen;
    return screen;
}

void DeskScreen::checkThread() const {
    if (screen_ && thread_ != GetCurrentThreadId())
        throw RuntimeError(error_number::invalidProcedureCall,
                           "The screen was opened on another thread of this program; open it "
                           "there again");
}

void DeskScreen::showHelp(Window& window, int command, std::int32_t data) {
    screen_->showHelp(window, command, data);
}

void DeskScreen::open(Window& window) {
    checkThread();
    if (!screen_) {
        library_use::stay();
        screen_ = realScreen(loadedLanguage());
        thread_ = GetCurrentThreadId();
    }
    screen().open(window);
}

void DeskScreen::pointerChanged(int pointer) {
    if (screen_ && thread_ == GetCurrentThreadId()) return screen().pointerChanged(pointer);
    SetCursor(LoadCursorW(nullptr, pointer == hourglass ? IDC_WAIT : IDC_ARROW));
}

int DeskScreen::messageBox(const std::string& text, int style, const std::string& title) {
    if (screen_ && thread_ == GetCurrentThreadId()) return screen().messageBox(text, style, title);
    return systemBox(text, static_cast<UINT>(style), title);
}

void DeskScreen::errorBox(const std::string& text, const std::string& title,
                          const std::string& detail, const std::string& context) {
    if (screen_ && thread_ == GetCurrentThreadId())
        return screen().errorBox(text, title, detail, context);
    std::string whole = text;
    if (!detail.empty()) whole += "\r\n\r\n" + detail;
    systemBox(whole, MB_ICONERROR | MB_OK,
              context.empty() || title.empty() ? title + context : title + " - " + context);
}

}  // namespace catalogador
