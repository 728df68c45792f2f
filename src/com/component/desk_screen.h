#pragma once
#include <atomic>
#include <memory>

#include "adapters/desktop/real_screen.h"
#include "platform/surface.h"

namespace catalogador::com {

/// The screen of the process that has loaded the library. The toolkit is started with the first
/// window and stays; until then boxes are the system's own, so that a host that never opens the
/// screen may unload the library again.
class DeskScreen : public Surface, public Printer {
  public:
    /// One for the process; lives as long as it.
    static DeskScreen& instance();

    /// Language of the boxes and of the windows' own texts from here on.
    void speak(std::uint8_t language) override;
    void showHelp(Window& window, int command, std::int32_t data);

    /// Raises RuntimeError when the windows belong to another thread than the calling one.
    void open(Window& window) override;
    void showModal(Window& window) override { screen().showModal(window); }
    void close(Window& window) override { screen().close(window); }
    void windowChanged(Window& window) override { screen().windowChanged(window); }
    void controlChanged(Window& window, Control& control) override {
        screen().controlChanged(window, control);
    }
    void commandBarsChanged(Window& window) override { screen().commandBarsChanged(window); }
    void focusChanged(Window& window) override { screen().focusChanged(window); }
    void pointerChanged(int pointer) override;
    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const ErrorNotice& error) override;
    std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) override {
        return screen().saveDialog(dialog);
    }
    void showMenu(Window& window, const Menu& menu) override { screen().showMenu(window, menu); }
    [[nodiscard]] int textWidth(std::string_view text) const override {
        return screen().textWidth(text);
    }
    [[nodiscard]] Rect monitorOf(const Window& window) const override {
        return screen().monitorOf(window);
    }
    [[nodiscard]] Rect clientRect(const Window& window) const override {
        return screen().clientRect(window);
    }
    bool progress(Window& window, int done, int total) override {
        return screen().progress(window, done, total);
    }
    void beep() override { screen().beep(); }
    void processEvents() override { screen().processEvents(); }

    std::optional<PrinterChoice> setUp(Window& window) override { return printer().setUp(window); }
    void show(Window& window, const PrintedDocument& document,
              const PrinterChoice& choice) override {
        printer().show(window, document, choice);
    }
    [[nodiscard]] const FontMeasure& fonts() const override { return printer().fonts(); }

  private:
    DeskScreen() = default;
    [[nodiscard]] bool isOnItsThread() const;
    int systemBox(const std::string& text, unsigned style, const std::string& title) const;
    [[nodiscard]] Surface& screen() const { return screen_->surface(); }
    [[nodiscard]] Printer& printer() const { return screen_->printer(); }

    std::unique_ptr<desktop::RealScreen> screen_;
    unsigned long thread_ = 0;
    std::atomic<std::uint8_t> language_ = 1;
};

}  // namespace catalogador::com
