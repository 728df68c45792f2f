#include "adapters/script/player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "adapters/script/windowless_surface.h"
#include "plain_services.h"
#include "small_window.h"

namespace catalogador::script {
namespace {

/// A screen that shows something else than the model says while `differs` is set.
class WrongScreen : public WindowlessSurface {
  public:
    bool differs = false;
    int compared = 0;

    [[nodiscard]] std::vector<std::string> differences(Window& window) override {
        ++compared;
        if (!differs) return {};
        return {window.controls().front()->name() + " is shown otherwise"};
    }
};

class PlayerTest : public testing::Test {
  protected:
    void load(const std::string& text, bool keepGoing = false) {
        in_.str(text);
        player_.emplace(Stage{script_, screen_, surface_, transcript_, answers_,
                              []() -> std::unique_ptr<rdoConnection> {
                                  throw RuntimeError(error_number::statementFailed, "no server");
                              },
                              keepGoing, complaints_});
    }
    /// Shows the window until the script has closed it.
    std::string play(const std::string& text, bool keepGoing = false) {
        load(text, keepGoing);
        surface_.showModal(window_);
        EXPECT_TRUE(window_.isClosed());
        return out_.str();
    }
    [[nodiscard]] int status() const { return player_->status(); }

    std::istringstream in_;
    std::ostringstream out_;
    std::ostringstream complaints_;
    Script script_{in_};
    Transcript transcript_{out_, false};
    ScriptAnswers answers_;
    WrongScreen screen_;
    ScriptedSurface surface_{screen_, transcript_, answers_};
    PlainUtilities utilities_;
    PlainMessages messages_;
    PlainAccess access_;
    PlainLanguages languages_;
    PlainGridFiles gridFiles_;
    PlainPrinter printer_;
    Host host_{surface_, utilities_, messages_, access_, languages_, gridFiles_, printer_, {}};
    SmallWindow window_{surface_};
    std::optional<Player> player_;
};

TEST_F(PlayerTest, ClosesTheWindowWhenLinesRunOut) {
    EXPECT_EQ(play("set txtTexto1 \"abc\"\n"), "");
    EXPECT_EQ(window_.text.text(), "abc");
    EXPECT_EQ(status(), Player::playedToTheEnd);
}

TEST_F(PlayerTest, StopsAtALineThatCannotBeCarriedOut) {
    EXPECT_EQ(play("# comment\naction 6\nset txtTexto1 \"abc\"\n"),
              "{\"event\":\"refused\",\"line\":2,\"reason\":\"action 6 is disabled\"}\n");
    EXPECT_EQ(window_.text.text(), "");
    EXPECT_EQ(status(), Player::lineRefused);
}

TEST_F(PlayerTest, GoesOnWhenToldTo) {
    EXPECT_EQ(play("hop\nset txtTexto1 \"abc\"\nfocus lblTexto1 x\n", true),
              "{\"event\":\"refused\",\"line\":1,\"reason\":\"unknown command hop\"}\n"
              "{\"event\":\"refused\",\"line\":3,\"reason\":\"one argument too many: x\"}\n");
    EXPECT_EQ(window_.text.text(), "abc");
    EXPECT_EQ(status(), Player::playedToTheEnd);
}

TEST_F(PlayerTest, AnErrorOfTheWindowIsALineThatFailed) {
    window_.commandBars.onExecute = [](int) {
        throw RuntimeError(error_number::overflow, "Overflow");
    };
    EXPECT_EQ(play("action 3\n"),
              "{\"event\":\"refused\",\"line\":1,\"reason\":\"6 - Overflow\"}\n");
}

TEST_F(PlayerTest, PlaysANestedWindowWhileItIsOpen) {
    SmallWindow nested(surface_);
    window_.commandBars.onExecute = [&](int) { surface_.showModal(nested); };
    EXPECT_EQ(play("action 3\nset txtTexto1 \"inner\"\nclose\nset txtTexto1 \"outer\"\n"), "");
    EXPECT_TRUE(nested.isClosed());
    EXPECT_EQ(nested.text.text(), "inner");
    EXPECT_EQ(window_.text.text(), "outer");
}

TEST_F(PlayerTest, EndOfTheScriptClosesEveryWindowFromTheTop) {
    std::vector<std::string> closed;
    SmallWindow nested(surface_);
    nested.onUnload = [&] { closed.emplace_back("nested"); };
    window_.onUnload = [&] { closed.emplace_back("outer"); };
    window_.commandBars.onExecute = [&](int) { surface_.showModal(nested); };
    play("action 3\n");
    EXPECT_EQ(closed, (std::vector<std::string>{"nested", "outer"}));
}

TEST_F(PlayerTest, ChoosesFromTheMenuThatIsOpen) {
    std::vector<int> executed;
    window_.commandBars.onExecute = [&](int id) { executed.push_back(id); };
    window_.grid.onMouseUp = [&](MouseButton button, int, int) {
        if (button == MouseButton::right) surface_.showMenu(window_, Menu{12, "", 0, {{3}, {6}}});
    };
    play(
        "menu 3\ngrid rightclick 1\nstate\nmenu 99\nmenu 3\nmenu 3\n"
        "grid rightclick 1\nkey Escape\nmenu 3\ngrid rightclick 1\nmenu 6\n",
        true);
    EXPECT_EQ(executed, std::vector<int>{3});
    std::vector<int> refused;
    std::istringstream lines(out_.str());
    for (std::string line; std::getline(lines, line);)
        if (const Json event = Json::parse(line); event["event"] == "refused")
            refused.push_back(event["line"].get<int>());
    // Line 3 is refused because this window is no maintenance screen; the menu stays open.
    EXPECT_EQ(refused, (std::vector<int>{1, 3, 4, 6, 9, 11}));
}

TEST_F(PlayerTest, EscapeOnAnOpenMenuDoesNotReachTheWindow) {
    int escapes = 0;
    window_.onEscape = [&] { ++escapes; };
    window_.grid.onMouseUp = [&](MouseButton, int, int) {
        surface_.showMenu(window_, Menu{12, "", 0, {{3}}});
    };
    play("grid rightclick 1\nkey Escape\nkey Escape\n");
    EXPECT_EQ(escapes, 1);
}

TEST_F(PlayerTest, PlacesTheWindow) {
    std::vector<std::pair<Rect, WindowState>> places;
    window_.move({100, 200, 6000, 5000});
    window_.onResize = [&] { places.emplace_back(window_.place(), window_.state()); };
    play("window 7000 6500\nwindow minimize\nwindow restore\nwindow 7000 -1\n", true);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_EQ(places[0], std::pair(Rect{100, 200, 7000, 6500}, WindowState::normal));
    EXPECT_EQ(places[1].second, WindowState::minimized);
    EXPECT_EQ(places[2].second, WindowState::normal);
}

TEST_F(PlayerTest, KeepsWhatIsToBeAnsweredLater) {
    play(
        "answer 7 6\ndialog save \"/tmp/a.csv\" 2\nprinter \"b.pdf\"\ndialog print ok\n"
        "clock \"2026-03-01 10:00:00\"\n");
    EXPECT_EQ(status(), Player::playedToTheEnd);
    EXPECT_EQ(answers_.answerTo(styleQuestion), answerNo);
    EXPECT_EQ(answers_.answerTo(styleQuestionDefaultNo), answerYes);
    EXPECT_EQ(answers_.takeSave()->filterIndex, 2);
    EXPECT_EQ(answers_.takePrint(), "b.pdf");
    EXPECT_EQ(answers_.clock, (Date{2026, 3, 1, 10, 0, 0}));
}

TEST_F(PlayerTest, ALineWithAMistakeAnswersNothing) {
    play(
        "answer 7 9\nanswer\ndialog save \"a\"\ndialog open\nclock \"yesterday\"\ncheck chkValor1 "
        "2\n",
        true);
    EXPECT_EQ(answers_.answerTo(styleQuestion), answerYes);
    EXPECT_FALSE(answers_.takeSave());
    EXPECT_FALSE(answers_.clock);
    const std::string out = out_.str();
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 6);
}

TEST_F(PlayerTest, CallsTheComponentAgainOnceNoFormIsOpen) {
    clsCatalogador component(host_);
    load("activate 5 17 \"x\"\nadd 5 \"Paises\" \"QX\"\nstate\nactivate 40000\n", true);
    EXPECT_EQ(player_->run(component, {3, 0, ""}), Player::playedToTheEnd);
    EXPECT_EQ(out_.str(),
              "{\"event\":\"result\",\"activarABM\":false,\"idModificado\":0}\n"
              "{\"event\":\"result\",\"activarABM\":false,\"idModificado\":0}\n"
              "{\"event\":\"result\",\"addNew\":9,\"idModificado\":0}\n"
              "{\"event\":\"refused\",\"line\":3,\"reason\":\"no form is open\"}\n"
              "{\"event\":\"refused\",\"line\":4,\"reason\":\"the view 40000 is out of range\"}\n");
}

TEST_F(PlayerTest, RefusesACallWhileAFormIsOpen) {
    EXPECT_EQ(play("activate 5\n"),
              "{\"event\":\"refused\",\"line\":1,\"reason\":\"a form is open\"}\n");
}

TEST_F(PlayerTest, AStatementThatFailsIsNoRefusal) {
    EXPECT_EQ(play("sql \"Select 1\"\n"),
              "{\"event\":\"sql\",\"columns\":[],\"rows\":[],\"affected\":0,"
              "\"error\":\"40002 - no server\"}\n");
    EXPECT_EQ(status(), Player::playedToTheEnd);
}

TEST_F(PlayerTest, ComparesTheScreenAfterEveryLine) {
    play("set txtTexto1 \"a\"\nset txtTexto1 \"b\"\n");
    EXPECT_EQ(screen_.compared, 3);
    EXPECT_EQ(status(), Player::playedToTheEnd);
}

TEST_F(PlayerTest, ADifferenceIsToldAndChangesTheStatus) {
    screen_.differs = true;
    EXPECT_EQ(play(""), "");
    EXPECT_EQ(complaints_.str(), "txtTexto1 is shown otherwise\n");
    EXPECT_EQ(status(), Player::screenDiffered);
}

}  // namespace
}  // namespace catalogador::script
