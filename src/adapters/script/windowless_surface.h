#pragma once
#include "platform/played_screen.h"

namespace catalogador::script {

/// A surface without any window: what it measures depends on no font and no display, boxes get
/// their default answer and dialogs are cancelled.
class WindowlessSurface : public Surface, public PlayedScreen {
  public:
    [[nodiscard]] Surface& surface() override { return *this; }
    void setModalRunner(std::function<void(Window&)> runner) override;
    [[nodiscard]] std::vector<std::string> differences(Window&) override { return {}; }

    void open(Window&) override {}
    /// Returns at once when there is no runner.
    void showModal(Window& window) override;
    void close(Window&) override {}
    void windowChanged(Window&) override {}
    void controlChanged(Window&, Control&) override {}
    void commandBarsChanged(Window&) override {}
    void focusChanged(Window&) override {}
    void pointerChanged(int) override {}

    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const ErrorNotice&) override {}
    std::optional<SaveChoice> saveDialog(const SaveDialog&) override { return std::nullopt; }
    void showMenu(Window&, const Menu&) override {}

    [[nodiscard]] int textWidth(std::string_view text) const override;
    [[nodiscard]] Rect monitorOf(const Window& window) const override;
    [[nodiscard]] Rect clientRect(const Window& window) const override;
    void processEvents() override {}

  private:
    std::function<void(Window&)> runner_;
};

}  // namespace catalogador::script
