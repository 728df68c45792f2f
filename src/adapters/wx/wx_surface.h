#pragma once
#include <wx/longlong.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/surface.h"
#include "platform/window_memory.h"

class wxProgressDialog;
class wxWindow;

namespace catalogador::wx {

class ScreenFrame;

/// Real windows by wxWidgets. One object a process; it starts the toolkit and ends it.
class WxSurface : public Surface {
  public:
    /// Raises RuntimeError when there is no display.
    explicit WxSurface(std::int16_t language);
    ~WxSurface() override;

    void open(Window& window) override;
    void showModal(Window& window) override;
    void close(Window& window) override;
    void windowChanged(Window& window) override;
    void controlChanged(Window& window, Control& control) override;
    void commandBarsChanged(Window& window) override;
    void focusChanged(Window& window) override;
    void pointerChanged(int pointer) override;
    void speak(std::uint8_t language) override;
    /// Number of the language that its own texts have.
    [[nodiscard]] std::int16_t language() const { return language_; }
    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const ErrorNotice& error) override;
    std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) override;
    void showMenu(Window& window, const Menu& menu) override;
    void copyText(const std::string& text) override;
    [[nodiscard]] int textWidth(std::string_view text) const override;
    [[nodiscard]] Rect monitorOf(const Window& window) const override;
    [[nodiscard]] Rect clientRect(const Window& window) const override;
    /// A work of more than a second shows how far it is, with a button that stops it.
    bool progress(Window& window, int done, int total) override;
    void beep() override;
    /// Waits, a second at most, until the desktop has done with a window what the model says.
    void settle(Window& window);
    void processEvents() override;

    /// The native window of a form, null while it has none.
    [[nodiscard]] wxWindow* nativeWindow(const Window& window) const;

    /// What showModal runs, once the window is painted, in the place of waiting for a user.
    void setModalRunner(std::function<void(Window&)> runner) { runner_ = std::move(runner); }
    /// Where the sizes of windows are kept; those that a script plays on have the model's.
    void rememberSizes(WindowMemory memory) { memory_ = std::move(memory); }
    /// What the native window shows otherwise than the model says, one text for each difference.
    [[nodiscard]] std::vector<std::string> differences(Window& window);

  private:
    [[nodiscard]] ScreenFrame* frameOf(const Window& window) const;
    [[nodiscard]] ScreenFrame* topFrame() const;
    void syncAll();
    void endProgress();

    std::int16_t language_;
    std::vector<ScreenFrame*> frames_;
    std::function<void(Window&)> runner_;
    WindowMemory memory_;
    int pointer_ = 0;
    wxLongLong progressBegan_ = 0;
    /// When the progress is shown again, in milliseconds from its begin.
    wxLongLong nextProgress_ = 0;
    std::unique_ptr<wxProgressDialog> progress_;
};

}  // namespace catalogador::wx
