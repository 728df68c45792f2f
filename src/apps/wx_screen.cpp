#include "adapters/wx/wx_surface.h"
#include "apps/real_screen.h"

namespace catalogador {

namespace {

BoxLabels labelsOf(std::int16_t language) {
    switch (language) {
        case 2:
            return {"Yes", "No", "OK"};
        case 3:
            return {"Sim", "Não", "OK"};
        default:
            return {"Sí", "No", "Aceptar"};
    }
}

class WxScreen : public PlayedScreen {
  public:
    explicit WxScreen(std::int16_t language) : surface_(labelsOf(language)) {}

    [[nodiscard]] Surface& surface() override { return surface_; }
    void setModalRunner(std::function<void(Window&)> runner) override {
        surface_.setModalRunner(std::move(runner));
    }
    [[nodiscard]] std::vector<std::string> differences(Window& window) override {
        return surface_.differences(window);
    }

  private:
    WxSurface surface_;
};

}  // namespace

std::unique_ptr<PlayedScreen> realScreen(std::int16_t language) {
    return std::make_unique<WxScreen>(language);
}

}  // namespace catalogador
