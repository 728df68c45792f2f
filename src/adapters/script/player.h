#pragma once
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "adapters/script/answers.h"
#include "adapters/script/script_line.h"
#include "adapters/script/scripted_surface.h"
#include "adapters/script/statement_line.h"
#include "adapters/script/transcript.h"
#include "component/clsCatalogador.h"
#include "platform/played_screen.h"

namespace catalogador {
class frmCatalogador;
}

namespace catalogador::script {

/// What a played screen is made of. All references must outlive the player.
struct Stage {
    Script& script;
    PlayedScreen& screen;
    ScriptedSurface& surface;
    Transcript& transcript;
    ScriptAnswers& answers;
    /// For `sql` lines.
    ConnectionFactory connect;
    /// Goes on after a line that cannot be carried out.
    bool keepGoing = false;
    /// Told where the screen differs from the model.
    std::ostream& complaints;
};

/// A call of ActivarABM.
struct Activation {
    std::int16_t view = 0;
    std::int32_t code = 0;
    std::string value;
};

/// The user of a played screen: carries out the lines of a script, one after another, on the window
/// that is on top, and calls the component again where the script says so.
class Player {
  public:
    static constexpr int playedToTheEnd = 0;
    static constexpr int lineRefused = 1;
    static constexpr int screenDiffered = 3;

    explicit Player(Stage stage);

    /// Makes the call and plays the whole script; gives the exit status.
    int run(clsCatalogador& component, const Activation& first);
    /// Plays lines on a window until it is closed. Without lines left it closes the window.
    void play(Window& window);
    /// Plays lines with no window open.
    void playRest();
    [[nodiscard]] int status() const;

  private:
    /// What has to be open for a line to be carried out.
    enum class Needs { nothing, window, noWindow };
    struct Command {
        std::string_view name;
        Needs needs;
        /// Another input than one to the context menu closes it.
        bool closesMenu;
        void (Player::*carryOut)(Arguments&);
    };
    static const std::vector<Command>& commands();
    static const Command& commandOf(const std::string& name);

    void perform(const ScriptLine& line);
    void carryOut(Arguments& line);
    void refuse(int line, const std::string& reason);
    void closeTop();
    void compareScreen();
    [[nodiscard]] Window& top() const { return *windows_.back(); }
    [[nodiscard]] frmCatalogador& topForm() const;
    void activate(const Activation& activation);

    void actionLine(Arguments& line);
    void keyLine(Arguments& line);
    void typeLine(Arguments& line);
    void pasteLine(Arguments& line);
    void focusLine(Arguments& line);
    void setLine(Arguments& line);
    void selectLine(Arguments& line);
    void checkLine(Arguments& line);
    void gridLine(Arguments& line);
    void menuLine(Arguments& line);
    void answerLine(Arguments& line);
    void windowLine(Arguments& line);
    void activateLine(Arguments& line);
    void addLine(Arguments& line);
    void dialogLine(Arguments& line);
    void printerLine(Arguments& line);
    void clockLine(Arguments& line);
    void sqlLine(Arguments& line);
    void stateLine(Arguments& line);
    void rowsLine(Arguments& line);
    void statusLine(Arguments& line);
    void closeLine(Arguments& line);

    Stage stage_;
    clsCatalogador* component_ = nullptr;
    std::vector<Window*> windows_;
    bool refused_ = false;
    bool differed_ = false;
};

/// The event that tells what AddNew gave.
Json addedEvent(clsCatalogador& component, std::int16_t view, const std::string& sequence,
                const std::string& value);

}  // namespace catalogador::script
