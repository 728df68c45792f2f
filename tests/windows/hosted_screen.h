#pragma once
#include <functional>
#include <vector>

#include "host_process.h"
#include "hosted.h"

namespace catalogador::test {

/// A host with the screen's connection and a window of its own, which opens a view of the
/// demonstration.
class HostedScreen : public testing::Test {
  protected:
    HostedScreen();

    /// Opens the list of scripts (view 5); another thread looks at the screen with `look`, and
    /// closes it then if it shall. Gives what the component says of it.
    bool activate(const std::function<void(HWND)>& look, bool close = true) {
        return activate(5, L"Escrituras", look, close);
    }
    /// The same with the view of that number, which has that caption.
    bool activate(SHORT view, const wchar_t* caption, const std::function<void(HWND)>& look,
                  bool close = true);
    /// Opens a view and does the steps one after the other on the screen's own thread, each when
    /// the window has done with the one before.
    void onScreen(SHORT view, const wchar_t* caption,
                  const std::vector<std::function<void(HWND)>>& steps);

    Apartment apartment_;
    DemoConnection connection_;
    HostWindow host_;
    com::ComPtr<com::_clsCatalogador> component_;
};

}  // namespace catalogador::test
