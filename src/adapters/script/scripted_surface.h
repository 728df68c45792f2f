#pragma once
#include <optional>

#include "adapters/script/answers.h"
#include "adapters/script/traced_surface.h"
#include "platform/controls/command_bars.h"
#include "platform/host.h"
#include "platform/played_screen.h"

namespace catalogador::script {

/// Stands between the model and a screen: prints what a user would be told and answers for that
/// user as the script has said. Boxes, dialogs and menus never reach the screen.
class ScriptedSurface : public TracedSurface, public FormListener {
  public:
    ScriptedSurface(Surface& inner, Transcript& transcript, ScriptAnswers& answers)
        : TracedSurface(inner, transcript), answers_(answers) {}

    /// Forms that are open, nested ones included.
    [[nodiscard]] int depth() const { return depth_; }

    /// The context menu that is open.
    [[nodiscard]] const std::optional<Menu>& menu() const { return menu_; }
    void closeMenu() { menu_.reset(); }

    void formOpening(std::int16_t view) override;
    void formClosed(std::int16_t view, std::int32_t lastCode) override;

    int messageBox(const std::string& text, int style, const std::string& title) override;
    void errorBox(const ErrorNotice& error) override;
    std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) override;
    void showMenu(Window& window, const Menu& menu) override;
    void copyText(const std::string& text) override;

  private:
    ScriptAnswers& answers_;
    int depth_ = 0;
    std::optional<Menu> menu_;
};

}  // namespace catalogador::script
