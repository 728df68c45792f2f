#include <gtest/gtest.h>

#include <sstream>

#include "adapters/script/scripted_surface.h"
#include "adapters/script/windowless_surface.h"
#include "platform/services.h"
#include "small_window.h"

namespace catalogador::script {
namespace {

class ScriptedScreen : public testing::Test {
  protected:
    std::ostringstream out_;
    Transcript transcript_{out_, true};
    ScriptAnswers answers_;
    WindowlessSurface inner_;
    ScriptedSurface surface_{inner_, transcript_, answers_};
};

TEST_F(ScriptedScreen, PrintsBoxesWithWhatWasAnswered) {
    answers_.addAnswer(answerNo);
    EXPECT_EQ(surface_.messageBox("¿Graba?", styleQuestion, "Países"), answerNo);
    surface_.errorBox({"Falló", "Países", "40002 - no", "", "No se pudo"});
    EXPECT_EQ(out_.str(),
              "{\"event\":\"message\",\"text\":\"¿Graba?\",\"style\":36,\"title\":\"Países\","
              "\"answer\":7}\n"
              "{\"event\":\"error\",\"text\":\"Falló\",\"title\":\"Países\","
              "\"detail\":\"40002 - no\",\"context\":\"\"}\n");
}

TEST_F(ScriptedScreen, PrintsSaveDialogs) {
    const SaveDialog dialog{"Exportar", "/home", "a.xlsx", "Excel|*.xlsx", 8194};
    EXPECT_FALSE(surface_.saveDialog(dialog));
    answers_.setSave(SaveChoice{"/tmp/b.csv", 2});
    ASSERT_TRUE(surface_.saveDialog(dialog));
    const std::string beginning =
        "{\"event\":\"dialog\",\"kind\":\"save\",\"title\":\"Exportar\",\"folder\":\"/home\","
        "\"file\":\"a.xlsx\",\"filter\":\"Excel|*.xlsx\",\"flags\":8194,\"answer\":";
    EXPECT_EQ(out_.str(), beginning + "\"cancel\"}\n" + beginning + "\"/tmp/b.csv\"}\n");
}

TEST_F(ScriptedScreen, PrintsMenusAndKeepsThemOpen) {
    SmallWindow window(surface_);
    EXPECT_FALSE(surface_.menu());
    surface_.showMenu(window, Menu{12, "", 0, {{3}, {6}, {99}}});
    EXPECT_EQ(out_.str(),
              "{\"event\":\"menu\",\"items\":[{\"id\":3,\"enabled\":true},"
              "{\"id\":6,\"enabled\":false},{\"id\":99,\"enabled\":false}]}\n");
    ASSERT_TRUE(surface_.menu());
    EXPECT_EQ(surface_.menu()->id, 12);
}

TEST_F(ScriptedScreen, TracesPointerAndFocus) {
    SmallWindow window(surface_);
    window.setOpen(true);
    surface_.pointerChanged(11);
    window.setFocus(window.combo);
    EXPECT_EQ(out_.str(),
              "{\"event\":\"pointer\",\"value\":11}\n"
              "{\"event\":\"focus\",\"control\":\"cmbValor1\"}\n");
    EXPECT_EQ(surface_.pointer(), 11);
}

TEST(WindowlessSurface, MeasuresByCharactersAlone) {
    WindowlessSurface surface;
    const SmallWindow window(surface);
    EXPECT_EQ(surface.textWidth("Añb"), 3 * 105);
    EXPECT_EQ(surface.monitorOf(window), (Rect{0, 0, 15360, 11520}));
}

TEST(WindowlessSurface, LeavesTheRestOfTheWindowToThePanel) {
    WindowlessSurface surface;
    SmallWindow window(surface);
    window.move({10, 10, 6500, 6000});
    EXPECT_EQ(surface.clientRect(window), (Rect{0, 0, 6400, 5000}));
    window.move({10, 10, 50, 900});
    EXPECT_EQ(surface.clientRect(window), (Rect{0, 0, 0, 0}));
}

TEST(WindowlessSurface, AnswersWithTheDefaultButton) {
    WindowlessSurface surface;
    EXPECT_EQ(surface.messageBox("", styleExclamation, ""), 1);
    EXPECT_EQ(surface.messageBox("", styleQuestion, ""), answerYes);
    EXPECT_EQ(surface.messageBox("", styleQuestionDefaultNo, ""), answerNo);
}

}  // namespace
}  // namespace catalogador::script
