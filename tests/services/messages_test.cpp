#include "adapters/services/messages.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/controls/command_bars.h"

namespace catalogador::services {
namespace {

/// Only the boxes are of interest here.
class BoxSurface : public Surface {
  public:
    void open(Window&) override {}
    void showModal(Window&) override {}
    void close(Window&) override {}
    void windowChanged(Window&) override {}
    void controlChanged(Window&, Control&) override {}
    void commandBarsChanged(Window&) override {}
    void focusChanged(Window&) override {}
    void pointerChanged(int) override {}
    void speak(std::uint8_t language) override { shown.push_back(std::to_string(language)); }
    int messageBox(const std::string& text, int style, const std::string& title) override {
        shown.push_back(text + "|" + std::to_string(style) + "|" + title);
        return answer;
    }
    void errorBox(const ErrorNotice& error) override {
        shown.push_back(error.text + "|" + error.title + "|" + error.detail + "|" + error.context +
                        "|" + error.task);
    }
    std::optional<SaveChoice> saveDialog(const SaveDialog&) override { return std::nullopt; }
    void showMenu(Window&, const Menu&) override {}
    [[nodiscard]] int textWidth(std::string_view) const override { return 0; }
    [[nodiscard]] Rect monitorOf(const Window&) const override { return {}; }
    [[nodiscard]] Rect clientRect(const Window&) const override { return {}; }
    void processEvents() override {}

    int answer = answerNo;
    std::vector<std::string> shown;
};

TEST(SurfaceMessages, AsksOnTheSurfaceAndGivesItsAnswer) {
    BoxSurface surface;
    SurfaceMessages messages(surface);
    EXPECT_EQ(messages.MostrarMensaje("Sure?", styleQuestion, "Title"), answerNo);
    surface.answer = answerYes;
    EXPECT_EQ(messages.MostrarMensaje("Sure?", styleQuestion, "Title"), answerYes);
    EXPECT_EQ(surface.shown.front(), "Sure?|36|Title");
}

TEST(SurfaceMessages, HasTheSurfaceSpeakItsLanguage) {
    BoxSurface surface;
    SurfaceMessages messages(surface);
    messages.Idioma(3);
    messages.Idioma(200);
    EXPECT_EQ(surface.shown, (std::vector<std::string>{"3", "200"}));
}

TEST(SurfaceMessages, ShowsErrorsWithDetailContextAndTask) {
    BoxSurface surface;
    SurfaceMessages messages(surface);
    messages.MostrarError("Failed", "Title", "5 - reason", "there", "Not saved");
    EXPECT_EQ(surface.shown.front(), "Failed|Title|5 - reason|there|Not saved");
}

}  // namespace
}  // namespace catalogador::services
