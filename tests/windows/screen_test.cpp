#include <clocale>

#include "adapters/system/wide_text.h"
#include "hosted_screen.h"
#include "runtime/convert.h"

namespace catalogador::test {
namespace {

HRESULT canUnload() {
    const HMODULE library = GetModuleHandleW(L"vemCatalogador.dll");
    return reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")))();
}

class Screen : public HostedScreen {};

TEST_F(Screen, HasTheHostsWindowsDisabledMeanwhileAndKeepsTheLibraryFromThenOn) {
    HostWindow disabledBefore;
    EnableWindow(disabledBefore.handle(), FALSE);
    for (int time = 0; time < 2; ++time) {
        bool disabled = false;
        bool owned = true;
        HRESULT unloadable = S_OK;
        EXPECT_TRUE(activate([&](HWND window) {
            disabled = IsWindowEnabled(host_.handle()) == 0;
            owned = GetWindow(window, GW_OWNER) != nullptr;
            unloadable = canUnload();
        }));
        EXPECT_TRUE(disabled);
        EXPECT_FALSE(owned);
        EXPECT_EQ(unloadable, S_FALSE);
        EXPECT_NE(IsWindowEnabled(host_.handle()), 0);
        EXPECT_EQ(IsWindowEnabled(disabledBefore.handle()), 0) << "the host had disabled it itself";
    }
    EXPECT_EQ(component_->AddRef(), 2U);
    EXPECT_EQ(component_->Release(), 1U);
    component_.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
}

TEST_F(Screen, LetsTheTimersAndMessagesOfABusyHostThrough) {
    long ticksBefore = 0;
    long ticksMeanwhile = 0;
    long messagesMeanwhile = 0;
    bool shown = false;
    bool opened = false;
    // The host opens the screen out of its own loop, as one that answers a click does.
    host_.onMessage = [&] {
        if (opened) return;
        opened = true;
        shown = activate([&](HWND) {
            ticksBefore = host_.ticks();
            for (int i = 0; i < 10; ++i) host_.post();
            Sleep(1000);
            ticksMeanwhile = host_.ticks();
            messagesMeanwhile = host_.messages();
        });
    };
    host_.post();
    HostWindow::runLoop(500);
    EXPECT_TRUE(shown);
    EXPECT_GT(ticksMeanwhile, ticksBefore + 10);
    EXPECT_EQ(messagesMeanwhile, 11);
    const long ticksAfter = host_.ticks();
    host_.post();
    HostWindow::runLoop(500);
    EXPECT_GT(host_.ticks(), ticksAfter + 5) << "the host's own loop goes on";
    EXPECT_EQ(host_.messages(), 12);
}

TEST_F(Screen, ClosesWhenTheHostIsAskedToQuitAndLeavesTheRequestToTheHostsLoop) {
    const DWORD thread = GetCurrentThreadId();
    HWND screen = nullptr;
    EXPECT_TRUE(activate(
        [&](HWND window) {
            screen = window;
            PostThreadMessageW(thread, WM_QUIT, 0, 0);
        },
        false));
    EXPECT_EQ(IsWindowVisible(screen), 0);
    EXPECT_NE(IsWindowEnabled(host_.handle()), 0);
    MSG message{};
    BOOL more = TRUE;
    while (more != 0 && message.message != WM_QUIT)
        more = PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
}

TEST_F(Screen, IsSharpOnEveryDisplayAndGivesTheHostsThreadItsScalingBack) {
    for (const DPI_AWARENESS_CONTEXT own :
         {DPI_AWARENESS_CONTEXT_UNAWARE, DPI_AWARENESS_CONTEXT_SYSTEM_AWARE}) {
        const DPI_AWARENESS_CONTEXT before = SetThreadDpiAwarenessContext(own);
        DPI_AWARENESS_CONTEXT used = nullptr;
        EXPECT_TRUE(activate([&](HWND window) { used = GetWindowDpiAwarenessContext(window); }));
        EXPECT_EQ(GetAwarenessFromDpiAwarenessContext(used), DPI_AWARENESS_PER_MONITOR_AWARE);
        EXPECT_NE(AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(), own), 0);
        SetThreadDpiAwarenessContext(before);
    }
}

TEST_F(Screen, LeavesTheHostsProcessAsItWas) {
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    EXPECT_NE(std::setlocale(LC_ALL, ""), nullptr);
    const UINT mode = SetErrorMode(SEM_NOOPENFILEERRORBOX);
    SetDllDirectoryW(L"C:\\windows\\temp");
    const ProcessSettings before = processSettings();
    ProcessSettings meanwhile;
    EXPECT_TRUE(activate([&](HWND) { meanwhile = processSettings(); }));
    const ProcessSettings after = processSettings();
    EXPECT_NE(before.locale, "C");
    EXPECT_EQ(before.searchedFolder, L"C:\\windows\\temp");
    for (const ProcessSettings& now : {meanwhile, after}) {
        EXPECT_EQ(now.locale, before.locale);
        EXPECT_EQ(now.folder, before.folder);
        EXPECT_EQ(now.searchedFolder, before.searchedFolder);
        EXPECT_EQ(now.path, before.path);
        EXPECT_EQ(now.errorMode, before.errorMode);
        EXPECT_EQ(now.knowsScales, before.knowsScales);
        EXPECT_EQ(now.filter, before.filter);
    }
    EXPECT_EQ(after.threadLocale, before.threadLocale);
    EXPECT_EQ(after.awareness, before.awareness);
    SetDllDirectoryW(nullptr);
    SetErrorMode(mode);
    std::setlocale(LC_ALL, locale.c_str());
}

TEST_F(Screen, IsRefusedOnAnotherThreadThanTheOneThatOpenedIt) {
    EXPECT_TRUE(activate([](HWND) {}));
    BoxCloser boxes;
    std::thread([&] {
        const Apartment other;
        const auto there = createdComponent();
        LONG code = 0;
        BSTR none = nullptr;
        const auto opened = [&](SHORT view) {
            VARIANT_BOOL shown = VARIANT_TRUE;
            EXPECT_EQ(there->ActivarABM(&view, &code, &none, &shown), S_OK);
            return shown != VARIANT_FALSE;
        };
        EXPECT_FALSE(opened(5)) << "there is no connection";
        DemoConnection connection;
        there->putref_Coneccion(connection.object().get());
        EXPECT_FALSE(opened(0));
        EXPECT_FALSE(opened(-1));
        EXPECT_EQ(boxes.count(), 0U) << "nothing of that is told";
        EXPECT_FALSE(opened(5)) << "the windows belong to the thread that opened them";
    }).join();
    const auto texts = boxes.texts();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NE(texts[0].find("another thread of this program"), std::string::npos) << texts[0];
    EXPECT_NE(texts[0].find(messageText(901)), std::string::npos) << texts[0];
}

TEST_F(Screen, GoesOnWithItsConnectionWhenTheHostLetsGoOfItMeanwhile) {
    for (const bool ofThisProject : {false, true}) {
        auto own = std::make_unique<DemoConnection>();
        component_->putref_Coneccion(ofThisProject ? own->object().get()
                                                   : asForeign(own->object().get()).get());
        host_.onMessage = [&] {
            component_->putref_Coneccion(nullptr);
            own.reset();
        };
        BoxCloser boxes;
        bool editing = false;
        EXPECT_TRUE(activate([&](HWND window) {
            host_.post();
            Sleep(500);
            constexpr int modify = 4;
            constexpr int cancel = 7;
            PostMessageW(window, WM_COMMAND, modify, 0);
            Sleep(1000);
            editing = (GetMenuState(GetMenu(window), cancel, MF_BYCOMMAND) & MF_GRAYED) == 0;
            PostMessageW(window, WM_COMMAND, cancel, 0);
            Sleep(500);
        }));
        EXPECT_EQ(own, nullptr);
        EXPECT_TRUE(editing) << "the record was read after the host had let go";
        const auto texts = boxes.texts();
        EXPECT_TRUE(texts.empty()) << texts.front();
        host_.onMessage = nullptr;
        SHORT view = 5;
        LONG code = 0;
        BSTR none = nullptr;
        VARIANT_BOOL shown = VARIANT_TRUE;
        EXPECT_EQ(component_->ActivarABM(&view, &code, &none, &shown), S_OK);
        EXPECT_EQ(shown, VARIANT_FALSE) << "there is no connection any more";
    }
}

TEST_F(Screen, HasBoxesInTheLanguageOfTheLastCreation) {
    EXPECT_TRUE(activate([](HWND) {}));
    EXPECT_NE(boxOfAClosedConnection().find("Aceptar"), std::string::npos);
    {
        const SettingsFile english("[VEM04]\nIdioma=2\n");
        const std::string labels = boxOfAClosedConnection();
        EXPECT_EQ(labels.find("Aceptar"), std::string::npos) << labels;
        EXPECT_NE(labels.find("OK"), std::string::npos) << labels;
    }
    EXPECT_NE(boxOfAClosedConnection().find("Aceptar"), std::string::npos);
}

}  // namespace
}  // namespace catalogador::test
