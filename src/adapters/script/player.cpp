#include "adapters/script/player.h"

#include <algorithm>

#include "form/frmCatalogador.h"

namespace catalogador::script {

Player::Player(Stage stage) : stage_(std::move(stage)) {
    stage_.screen.setModalRunner([this](Window& window) { play(window); });
}

int Player::run(clsCatalogador& component, const Activation& first) {
    component_ = &component;
    activate(first);
    playRest();
    return status();
}

void Player::activate(const Activation& activation) {
    const bool shown = component_->ActivarABM(activation.view, activation.code, activation.value);
    stage_.transcript.print(
        {{"event", "result"}, {"activarABM", shown}, {"idModificado", component_->IDModificado()}});
}

Json addedEvent(clsCatalogador& component, std::int16_t view, const std::string& sequence,
                const std::string& value) {
    const int result = component.AddNew(view, sequence, value);
    return {{"event", "result"}, {"addNew", result}, {"idModificado", component.IDModificado()}};
}

int Player::status() const {
    if (refused_ && !stage_.keepGoing) return lineRefused;
    return differed_ ? screenDiffered : playedToTheEnd;
}

void Player::play(Window& window) {
    windows_.push_back(&window);
    compareScreen();
    while (!window.isClosed()) {
        const auto line = status() == lineRefused ? std::nullopt : stage_.script.next();
        if (!line) {
            closeTop();
            break;
        }
        perform(*line);
    }
    windows_.pop_back();
}

void Player::playRest() {
    while (status() != lineRefused) {
        const auto line = stage_.script.next();
        if (!line) return;
        perform(*line);
    }
}

void Player::closeTop() {
    try {
        top().requestClose();
    } catch (const RuntimeError& error) {
        refuse(0, errorText(error.number(), error.description()));
    }
}

void Player::perform(const ScriptLine& line) {
    try {
        Arguments arguments(wordsOf(line.text));
        carryOut(arguments);
    } catch (const Refusal& refusal) {
        refuse(line.number, refusal.what());
    } catch (const RuntimeError& error) {
        refuse(line.number, errorText(error.number(), error.description()));
    }
    compareScreen();
    // What nobody can see any more must not go on.
    stage_.transcript.check();
}

void Player::carryOut(Arguments& line) {
    const Command& command = commandOf(line.word("the command"));
    if (command.needs == Needs::window && windows_.empty()) throw Refusal("no form is open");
    if (command.needs == Needs::noWindow && !windows_.empty()) throw Refusal("a form is open");
    if (command.closesMenu) stage_.surface.closeMenu();
    (this->*command.carryOut)(line);
}

void Player::refuse(int line, const std::string& reason) {
    refused_ = true;
    stage_.transcript.print({{"event", "refused"}, {"line", line}, {"reason", reason}});
}

void Player::compareScreen() {
    stage_.screen.surface().processEvents();
    if (windows_.empty() || top().isClosed()) return;
    for (const std::string& difference : stage_.screen.differences(top())) {
        differed_ = true;
        stage_.complaints << difference << '\n';
    }
}

frmCatalogador& Player::topForm() const {
    auto* form = dynamic_cast<frmCatalogador*>(&top());
    if (form == nullptr) throw Refusal("the window on top is no maintenance screen");
    return *form;
}

const Player::Command& Player::commandOf(const std::string& name) {
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [&](const Command& command) { return command.name == name; });
    if (found == commands().end()) throw Refusal("unknown command " + name);
    return *found;
}

}  // namespace catalogador::script
