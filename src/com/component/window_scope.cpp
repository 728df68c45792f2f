#include "com/component/window_scope.h"

namespace catalogador::com {

namespace {

/// The description of the controls that is part of this library. It is made once and stays: windows
/// refer to it.
HANDLE controlsContext() {
    static const HANDLE context = [] {
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&controlsContext), &description.hModule);
        description.lpResourceName = ISOLATIONAWARE_MANIFEST_RESOURCE_ID;
        return CreateActCtxW(&description);
    }();
    return context;
}

using SetThreadAwareness = DPI_AWARENESS_CONTEXT(WINAPI*)(DPI_AWARENESS_CONTEXT);

/// Null before Windows 10.
SetThreadAwareness setThreadAwareness() {
    return reinterpret_cast<SetThreadAwareness>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext")));
}

}  // namespace

WindowScope::WindowScope() {
    if (const auto set = setThreadAwareness()) {
        before_ = set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
        // The first releases of Windows 10 refuse the second version.
        if (before_ == nullptr) before_ = set(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    }
    const HANDLE context = controlsContext();
    activated_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != 0;
}

WindowScope::~WindowScope() {
    if (activated_) DeactivateActCtx(0, cookie_);
    const auto set = setThreadAwareness();
    if (set != nullptr && before_ != nullptr) set(before_);
}

}  // namespace catalogador::com
