#pragma once
#include <utility>
#include <vector>

#include "platform/controls/window.h"
#include "platform/surface.h"

namespace catalogador {

/// A surface that shows nothing and counts what it is told.
class BlankSurface : public Surface {
  public:
    int focusChanges = 0;
    int controlChanges = 0;
    int beeps = 0;
    Rect monitor{0, 0, 15360, 11520};

    void open(Window&) override {}
    void showModal(Window&) override {}
    void close(Window&) override {}
    void windowChanged(Window&) override {}
    void controlChanged(Window&, Control&) override { ++controlChanges; }
    void commandBarsChanged(Window&) override {}
    void focusChanged(Window&) override { ++focusChanges; }
    void pointerChanged(int) override {}
    int messageBox(const std::string&, int, const std::string&) override { return 1; }
    void errorBox(const ErrorNotice&) override {}
    std::optional<SaveChoice> saveDialog(const SaveDialog&) override { return std::nullopt; }
    void showMenu(Window&, const Menu&) override {}
    [[nodiscard]] int textWidth(std::string_view text) const override {
        return static_cast<int>(text.size()) * 100;
    }
    [[nodiscard]] Rect monitorOf(const Window&) const override { return monitor; }
    [[nodiscard]] Rect clientRect(const Window& window) const override {
        return {0, 0, window.place().width - 100, window.place().height - 1000};
    }
    void beep() override { ++beeps; }
    void processEvents() override {}
};

}  // namespace catalogador
