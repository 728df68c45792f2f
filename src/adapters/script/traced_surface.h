#pragma once
#include "adapters/script/transcript.h"
#include "platform/surface.h"

namespace catalogador::script {

/// Hands everything to another surface and traces what a picture of the screen does not tell: the
/// focus and the mouse pointer.
class TracedSurface : public Surface {
  public:
    TracedSurface(Surface& inner, Transcript& transcript)
        : inner_(inner), transcript_(transcript) {}

    /// The mouse pointer that was asked for last.
    [[nodiscard]] int pointer() const { return pointer_; }

    void open(Window& window) override { inner_.open(window); }
    void showModal(Window& window) override { inner_.showModal(window); }
    void close(Window& window) override { inner_.close(window); }
    void windowChanged(Window& window) override { inner_.windowChanged(window); }
    void controlChanged(Window& window, Control& control) override {
        inner_.controlChanged(window, control);
    }
    void commandBarsChanged(Window& window) override { inner_.commandBarsChanged(window); }
    void focusChanged(Window& window) override;
    void pointerChanged(int pointer) override;

    int messageBox(const std::string& text, int style, const std::string& title) override {
        return inner_.messageBox(text, style, title);
    }
    void errorBox(const ErrorNotice& error) override { inner_.errorBox(error); }
    std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) override {
        return inner_.saveDialog(dialog);
    }
    void showMenu(Window& window, const Menu& menu) override { inner_.showMenu(window, menu); }

    void speak(std::uint8_t language) override { inner_.speak(language); }
    void copyText(const std::string& text) override { inner_.copyText(text); }

    [[nodiscard]] int textWidth(std::string_view text) const override {
        return inner_.textWidth(text);
    }
    [[nodiscard]] Rect monitorOf(const Window& window) const override {
        return inner_.monitorOf(window);
    }
    [[nodiscard]] Rect clientRect(const Window& window) const override {
        return inner_.clientRect(window);
    }
    bool progress(Window& window, int done, int total) override {
        return inner_.progress(window, done, total);
    }
    void beep() override { inner_.beep(); }
    void processEvents() override { inner_.processEvents(); }

  protected:
    [[nodiscard]] Transcript& transcript() { return transcript_; }

  private:
    Surface& inner_;
    Transcript& transcript_;
    int pointer_ = 0;
};

}  // namespace catalogador::script
