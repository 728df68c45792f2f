#include <windows.h>

#include "adapters/wx/host_windows.h"

namespace catalogador::wx {

namespace {

BOOL CALLBACK collectUsable(HWND window, LPARAM found) {
    if (IsWindowVisible(window) != 0 && IsWindowEnabled(window) != 0)
        reinterpret_cast<std::vector<WXWidget>*>(found)->push_back(window);
    return TRUE;
}

}  // namespace

HostWindowsDisabled::HostWindowsDisabled(const wxWindow& shown) : active_(GetActiveWindow()) {
    EnumThreadWindows(GetCurrentThreadId(), collectUsable, reinterpret_cast<LPARAM>(&disabled_));
    std::erase(disabled_, shown.GetHandle());
    for (const WXWidget window : disabled_) EnableWindow(static_cast<HWND>(window), FALSE);
}

HostWindowsDisabled::~HostWindowsDisabled() {
    for (const WXWidget window : disabled_) EnableWindow(static_cast<HWND>(window), TRUE);
    if (IsWindow(static_cast<HWND>(active_)) != 0) SetActiveWindow(static_cast<HWND>(active_));
}

void askHostToQuit() {
    PostQuitMessage(0);
}

WXWidget changeOwner(wxWindow& window, WXWidget owner) {
    const auto previous = SetWindowLongPtrW(static_cast<HWND>(window.GetHandle()), GWLP_HWNDPARENT,
                                            reinterpret_cast<LONG_PTR>(owner));
    return reinterpret_cast<WXWidget>(previous);
}

}  // namespace catalogador::wx
