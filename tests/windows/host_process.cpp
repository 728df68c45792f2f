#include "host_process.h"

#include <array>
#include <clocale>

namespace catalogador::test {

namespace {

constexpr UINT_PTR timer = 1;
constexpr UINT interval = 20;
constexpr const wchar_t* className = L"CatalogadorTestHost";

}  // namespace

ProcessSettings processSettings() {
    ProcessSettings settings;
    std::array<wchar_t, 32768> text{};
    const auto size = static_cast<DWORD>(text.size());
    settings.locale = std::setlocale(LC_ALL, nullptr);
    settings.folder.assign(text.data(), GetCurrentDirectoryW(size, text.data()));
    settings.searchedFolder.assign(text.data(), GetDllDirectoryW(size, text.data()));
    settings.path.assign(text.data(), GetEnvironmentVariableW(L"PATH", text.data(), size));
    settings.errorMode = GetErrorMode();
    settings.threadLocale = GetThreadLocale();
    settings.knowsScales = IsProcessDPIAware();
    settings.awareness = GetAwarenessFromDpiAwarenessContext(GetThreadDpiAwarenessContext());
    settings.filter = SetUnhandledExceptionFilter(nullptr);
    SetUnhandledExceptionFilter(settings.filter);
    return settings;
}

HostWindow::HostWindow() {
    WNDCLASSW description{};
    description.lpfnWndProc = receive;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = className;
    RegisterClassW(&description);
    window_ = CreateWindowExW(0, className, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200,
                              100, nullptr, nullptr, description.hInstance, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetTimer(window_, timer, interval, nullptr);
}

HostWindow::~HostWindow() {
    KillTimer(window_, timer);
    DestroyWindow(window_);
}

void HostWindow::runLoop(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (GetTickCount64() < end) {
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        Sleep(1);
    }
}

LRESULT CALLBACK HostWindow::receive(HWND window, UINT message, WPARAM word, LPARAM value) {
    auto* self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, word, value);
    if (message == WM_TIMER) ++self->ticks_;
    if (message != WM_APP) return DefWindowProcW(window, message, word, value);
    ++self->messages_;
    if (self->onMessage) self->onMessage();
    return 0;
}

}  // namespace catalogador::test
