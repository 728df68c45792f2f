#pragma once
#include <optional>
#include <vector>

#include "adapters/script/answers.h"
#include "adapters/script/screen.h"
#include "adapters/script/transcript.h"
#include "platform/controls/command_bars.h"
#include "platform/host.h"

namespace catalogador {

/// Stands between the model and a screen: prints what a user would be told and answers for that
/// user as the script has said. Boxes, dialogs and menus never reach the screen.
class ScriptedSurface : public Surface, public FormListener {
  public:
    ScriptedSurface(Surface& inner, Transcript& transcript, ScriptAnswers& answers)
        : inner_(inner), transcript_(transcript), answers_(answers) {}

    /// Forms that are open, nested ones included.
    [[nodiscard]] int depth() const { return static_cast<int>(forms_.size()); }
    /// The mouse pointer that was asked for last.
    [[nodiscard]] int pointer() const { return pointer_; }

    /// The context menu that is open.
    [[nodiscard]] const std::optional<Menu>& menu() const { return menu_; }
    void closeMenu() { menu_.reset(); }

    void formOpening(frmCatalogador& form) override;
    void formClosed(frmCatalogador& form) override;

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

    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const std::string& text, const std::string& title, const std::string& detail,
                  const std::string& context) override;
    std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) override;
    void showMenu(Window& window, const Menu& menu) override;

    [[nodiscard]] int textWidth(std::string_view text) const override {
        return inner_.textWidth(text);
    }
    [[nodiscard]] Size screenSize() const override { return inner_.screenSize(); }
    [[nodiscard]] Rect clientRect(const Window& window) const override {
        return inner_.clientRect(window);
    }
    void processEvents() override { inner_.processEvents(); }

  private:
    Surface& inner_;
    Transcript& transcript_;
    ScriptAnswers& answers_;
    std::vector<frmCatalogador*> forms_;
    std::optional<Menu> menu_;
    int pointer_ = 0;
};

}  // namespace catalogador
