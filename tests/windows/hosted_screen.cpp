#include "hosted_screen.h"

namespace catalogador::test {

namespace {

/// The screen with a caption, once it is there; null when it does not come.
HWND shownScreen(const wchar_t* caption) {
    for (int tries = 0; tries < 300; ++tries) {
        Sleep(50);
        const HWND window = FindWindowW(nullptr, caption);
        if (window != nullptr && IsWindowVisible(window) != 0) {
            Sleep(500);
            return window;
        }
    }
    return nullptr;
}

}  // namespace

HostedScreen::HostedScreen() : component_(createdComponent()) {
    component_->putref_Coneccion(asForeign(connection_.object().get()).get());
    BSTR key = com::newText("VEM04");
    component_->put_AppKey(key);
    SysFreeString(key);
    component_->put_Empresa(1);
}

bool HostedScreen::activate(SHORT view, const wchar_t* caption,
                            const std::function<void(HWND)>& look, bool close) {
    LONG code = 0;
    BSTR none = nullptr;
    VARIANT_BOOL shown = VARIANT_FALSE;
    bool seen = false;
    std::thread other([&] {
        const HWND window = shownScreen(caption);
        if (window == nullptr) return;
        seen = true;
        look(window);
        if (close) PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(component_->ActivarABM(&view, &code, &none, &shown), S_OK);
    other.join();
    EXPECT_TRUE(seen) << "the screen did not come";
    return shown != VARIANT_FALSE;
}

void HostedScreen::onScreen(SHORT view, const wchar_t* caption,
                            const std::vector<std::function<void(HWND)>>& steps) {
    EXPECT_TRUE(activate(view, caption, [&](HWND window) {
        for (const auto& step : steps) {
            std::atomic<bool> done = false;
            host_.onMessage = [&] {
                step(window);
                done = true;
            };
            host_.post();
            for (int tries = 0; tries < 200 && !done; ++tries) Sleep(50);
            EXPECT_TRUE(done) << "the screen's thread did not answer";
            Sleep(500);
            host_.onMessage = nullptr;
        }
    }));
}

}  // namespace catalogador::test
