#include "adapters/desktop/folders.h"
#include "adapters/desktop/real_screen.h"
#include "adapters/help/help_pages.h"
#include "adapters/wx/help_viewer.h"
#include "adapters/wx/printing.h"
#include "adapters/wx/window_texts.h"
#include "adapters/wx/wx_surface.h"
#include "modules/messages.h"
#include "modules/modLenguaje.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::desktop {

namespace {

wx::HelpLabels helpLabels() {
    return {replaceText(ObtenerMensaje(message::helpCaption), "&", "", Compare::binary),
            wx::windowText(message::helpBack), wx::windowText(message::helpForward),
            wx::windowText(message::helpContents), wx::windowText(message::closeButton)};
}

class WxScreen : public RealScreen {
  public:
    explicit WxScreen(std::int16_t language) : surface_(language) {}

    [[nodiscard]] Surface& surface() override { return surface_; }
    void setModalRunner(std::function<void(Window&)> runner) override {
        surface_.setModalRunner(std::move(runner));
    }
    void settle(Window& window) override { surface_.settle(window); }
    [[nodiscard]] std::vector<std::string> differences(Window& window) override {
        return surface_.differences(window);
    }

    void rememberSizes(WindowMemory memory) override { surface_.rememberSizes(std::move(memory)); }
    [[nodiscard]] Printer& printer() override { return printer_; }

    void showHelp(Window& window, int command, std::int32_t data) override {
        wxWindow* native = surface_.nativeWindow(window);
        if (native == nullptr)
            throw RuntimeError(error_number::cannotCreateObject,
                               "There is no window that the help could be shown over");
        wx::showHelp(*native, help::HelpPages(helpFolder()), helpLabels(),
                     {command, data, surface_.language()});
    }

  private:
    wx::WxSurface surface_;
    wx::WxPrinter printer_{surface_};
};

}  // namespace

std::unique_ptr<RealScreen> realScreen(std::int16_t language) {
    return std::make_unique<WxScreen>(language);
}

}  // namespace catalogador::desktop
