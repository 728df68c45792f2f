#pragma once
#include <atomic>
#include <functional>
#include <string>

#include "com/automation/com_api.h"

namespace catalogador::test {

/// What a library could change for the whole of the program that has loaded it.
struct ProcessSettings {
    std::string locale;
    std::wstring folder;
    std::wstring searchedFolder;
    std::wstring path;
    UINT errorMode = 0;
    LCID threadLocale = 0;
    BOOL knowsScales = FALSE;
    DPI_AWARENESS awareness = DPI_AWARENESS_INVALID;
    LPTOP_LEVEL_EXCEPTION_FILTER filter = nullptr;

    bool operator==(const ProcessSettings&) const = default;
};
ProcessSettings processSettings();

/// A window of a host, with a timer, that counts what reaches it.
class HostWindow {
  public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    [[nodiscard]] HWND handle() const { return window_; }
    [[nodiscard]] long ticks() const { return ticks_; }
    [[nodiscard]] long messages() const { return messages_; }
    /// A message that messages() counts; any thread may post it.
    void post() const { PostMessageW(window_, WM_APP, 0, 0); }
    /// Dispatches the thread's messages, as a host does that is busy all the time.
    static void runLoop(DWORD milliseconds);

    /// What the window does when such a message reaches it.
    std::function<void()> onMessage;

  private:
    static LRESULT CALLBACK receive(HWND window, UINT message, WPARAM word, LPARAM value);

    HWND window_ = nullptr;
    std::atomic<long> ticks_ = 0;
    std::atomic<long> messages_ = 0;
};

}  // namespace catalogador::test
