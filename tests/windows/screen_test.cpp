#include <array>

#include "adapters/desk/wide_text.h"
#include "hosted.h"
#include "runtime/convert.h"

namespace catalogador::test {
namespace {

/// What another thread sees while the screen is open.
struct Seen {
    bool shown = false;
    bool hostDisabled = false;
    bool owned = true;
    HRESULT canUnload = S_OK;
};

HRESULT canUnload() {
    const HMODULE library = GetModuleHandleW(L"vemCatalogador.dll");
    return reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))();
}

/// Waits for the screen, looks and closes it.
Seen lookAndClose(HWND host) {
    Seen seen;
    HWND window = nullptr;
    for (int tries = 0; tries < 300 && window == nullptr; ++tries) {
        Sleep(50);
        window = FindWindowW(nullptr, L"Escrituras");
        if (window != nullptr && IsWindowVisible(window) == 0) window = nullptr;
    }
    if (window == nullptr) return seen;
    Sleep(500);
    seen.shown = true;
    seen.hostDisabled = IsWindowEnabled(host) == 0;
    seen.owned = GetWindow(window, GW_OWNER) != nullptr;
    seen.canUnload = canUnload();
    PostMessageW(window, WM_CLOSE, 0, 0);
    return seen;
}

bool activate(_clsCatalogador& component, HWND host, Seen& seen) {
    SHORT view = 5;
    LONG code = 0;
    BSTR none = nullptr;
    VARIANT_BOOL shown = VARIANT_FALSE;
    std::thread other([&] { seen = lookAndClose(host); });
    EXPECT_EQ(component.ActivarABM(&view, &code, &none, &shown), S_OK);
    other.join();
    return shown != VARIANT_FALSE;
}

TEST(Screen, HasTheHostsWindowsDisabledMeanwhileAndKeepsTheLibraryFromThenOn) {
    const Apartment apartment;
    DemoConnection connection;
    const HWND host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                      200, 100, nullptr, nullptr, nullptr, nullptr);
    const UINT errorMode = GetErrorMode();
    auto component = createdComponent();
    component->putref_Coneccion(asForeign(connection.object().get()).get());
    BSTR key = newText("VEM04");
    component->put_AppKey(key);
    SysFreeString(key);
    component->put_Empresa(1);
    for (int time = 0; time < 2; ++time) {
        Seen seen;
        EXPECT_TRUE(activate(*component.get(), host, seen));
        EXPECT_TRUE(seen.shown);
        EXPECT_TRUE(seen.hostDisabled);
        EXPECT_FALSE(seen.owned);
        EXPECT_EQ(seen.canUnload, S_FALSE);
        EXPECT_NE(IsWindowEnabled(host), 0);
    }
    EXPECT_EQ(GetErrorMode(), errorMode);
    HRESULT elsewhere = S_OK;
    std::thread([&] {
        const Apartment other;
        const auto there = createdComponent();
        SHORT view = 5;
        LONG code = 0;
        BSTR none = nullptr;
        VARIANT_BOOL shown = VARIANT_TRUE;
        elsewhere = there->ActivarABM(&view, &code, &none, &shown);
        EXPECT_EQ(shown, VARIANT_FALSE);
    }).join();
    EXPECT_TRUE(FAILED(elsewhere)) << "the windows belong to the thread that opened them";
    EXPECT_EQ(component->AddRef(), 2U);
    EXPECT_EQ(component->Release(), 1U);
    component.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    DestroyWindow(host);
}

}  // namespace
}  // namespace catalogador::test
