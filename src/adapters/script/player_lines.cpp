#include <algorithm>
#include <limits>

#include "adapters/script/grid_input.h"
#include "adapters/script/player.h"
#include "adapters/script/rows.h"
#include "adapters/script/state.h"
#include "adapters/script/user_input.h"
#include "form/frmCatalogador.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::script {

const std::vector<Player::Command>& Player::commands() {
    static const std::vector<Command> table{
        {"action", Needs::window, true, &Player::actionLine},
        {"key", Needs::window, false, &Player::keyLine},
        {"type", Needs::window, true, &Player::typeLine},
        {"paste", Needs::window, true, &Player::pasteLine},
        {"focus", Needs::window, true, &Player::focusLine},
        {"set", Needs::window, true, &Player::setLine},
        {"select", Needs::window, true, &Player::selectLine},
        {"check", Needs::window, true, &Player::checkLine},
        {"grid", Needs::window, true, &Player::gridLine},
        {"menu", Needs::window, false, &Player::menuLine},
        {"window", Needs::window, true, &Player::windowLine},
        {"close", Needs::window, true, &Player::closeLine},
        {"state", Needs::window, false, &Player::stateLine},
        {"rows", Needs::window, false, &Player::rowsLine},
        {"status", Needs::window, false, &Player::statusLine},
        {"activate", Needs::noWindow, false, &Player::activateLine},
        {"add", Needs::noWindow, false, &Player::addLine},
        {"answer", Needs::nothing, false, &Player::answerLine},
        {"dialog", Needs::nothing, false, &Player::dialogLine},
        {"printer", Needs::nothing, false, &Player::printerLine},
        {"clock", Needs::nothing, false, &Player::clockLine},
        {"sql", Needs::nothing, false, &Player::sqlLine},
    };
    return table;
}

void Player::actionLine(Arguments& line) {
    const auto id = line.number<int>("the action");
    line.end();
    executeAction(top(), id);
}

void Player::keyLine(Arguments& line) {
    const std::string name = line.word("the key");
    line.end();
    const bool menuOpen = stage_.surface.menu().has_value();
    stage_.surface.closeMenu();
    // An open menu takes the key that closes it away from the window.
    if (menuOpen && name == "Escape") return;
    pressKeyNamed(top(), name);
}

void Player::typeLine(Arguments& line) {
    const std::string text = line.text("the text");
    line.end();
    typeText(top(), text);
}

void Player::pasteLine(Arguments& line) {
    const std::string text = line.text("the text");
    line.end();
    pasteText(top(), text);
}

void Player::focusLine(Arguments& line) {
    const std::string name = line.word("the control");
    line.end();
    focusControl(top(), name);
}

void Player::setLine(Arguments& line) {
    const std::string name = line.word("the control");
    const std::string text = line.text("the text");
    line.end();
    replaceTextOf(top(), name, text);
}

void Player::selectLine(Arguments& line) {
    const std::string name = line.word("the control");
    const auto code = line.number<std::int32_t>("the code");
    line.end();
    chooseEntry(top(), name, code);
}

void Player::checkLine(Arguments& line) {
    const std::string name = line.word("the control");
    const auto value = line.number<int>("the value");
    line.end();
    if (value != 0 && value != 1) throw Refusal("a check box is set to 0 or 1");
    setCheck(top(), name, value == 1);
}

void Player::gridLine(Arguments& line) {
    useGrid(top(), line);
}

void Player::menuLine(Arguments& line) {
    const auto id = line.number<int>("the action");
    line.end();
    const std::optional<Menu> menu = stage_.surface.menu();
    if (!menu) throw Refusal("no context menu is open");
    const auto offered = [&](const ActionPlace& place) { return place.actionId == id; };
    if (std::none_of(menu->items.begin(), menu->items.end(), offered))
        throw Refusal("the context menu has no action " + decimalText(id));
    stage_.surface.closeMenu();
    executeAction(top(), id);
}

void Player::windowLine(Arguments& line) {
    Rect place = top().place();
    WindowState state = WindowState::normal;
    if (line.accept("minimize")) {
        state = WindowState::minimized;
    } else if (!line.accept("restore")) {
        place.width = line.number<int>("the width");
        place.height = line.number<int>("the height");
        if (place.width < 0 || place.height < 0) throw Refusal("a window cannot be that small");
    }
    line.end();
    placeWindow(top(), place, state);
    stage_.screen.settle(top());
}

void Player::closeLine(Arguments& line) {
    line.end();
    top().requestClose();
}

void Player::stateLine(Arguments& line) {
    line.end();
    stage_.transcript.print(stateOf(topForm(), stage_.surface.depth(), stage_.surface.pointer()));
}

void Player::statusLine(Arguments& line) {
    line.end();
    const auto& grid = topForm().grdGrilla;
    Json empty = nullptr;
    if (grid.visibleRows() == 0) empty = top().emptyListText();
    stage_.transcript.print({{"event", "status"}, {"text", top().statusText()}, {"empty", empty}});
}

void Player::rowsLine(Arguments& line) {
    const int first = line.left() ? line.number<int>("the first row") : RecordGrid::fixedRows;
    const int count =
        line.left() ? line.number<int>("the number of rows") : std::numeric_limits<int>::max();
    line.end();
    if (first < RecordGrid::fixedRows || count < 0) throw Refusal("rows count from 1");
    printRows(stage_.transcript, topForm().grdGrilla, first, count);
}

void Player::activateLine(Arguments& line) {
    Activation activation;
    activation.view = line.number<std::int16_t>("the view");
    if (line.left()) activation.code = line.number<std::int32_t>("the code");
    if (line.left()) activation.value = line.text("the value");
    line.end();
    activate(activation);
}

void Player::addLine(Arguments& line) {
    const auto view = line.number<std::int16_t>("the view");
    const std::string sequence = line.text("the sequence");
    const std::string value = line.text("the value");
    line.end();
    stage_.transcript.print(addedEvent(*component_, view, sequence, value));
}

void Player::answerLine(Arguments& line) {
    std::vector<int> answers;
    do {
        answers.push_back(line.number<int>("the answer"));
        if (answers.back() != answerYes && answers.back() != answerNo)
            throw Refusal("an answer is 6 (Yes) or 7 (No)");
    } while (line.left());
    for (const int answer : answers) stage_.answers.addAnswer(answer);
}

void Player::dialogLine(Arguments& line) {
    if (line.accept("print")) {
        const bool print = line.accept("ok");
        if (!print && !line.accept("cancel"))
            throw Refusal("a printer dialog is answered with ok or cancel");
        line.end();
        stage_.answers.setPrint(print);
        return;
    }
    if (!line.accept("save")) throw Refusal("a dialog is a save or a print dialog");
    std::optional<SaveChoice> choice;
    if (!line.accept("cancel")) {
        choice.emplace();
        choice->path = line.text("the path");
        choice->filterIndex = line.number<int>("the filter index");
    }
    line.end();
    stage_.answers.setSave(std::move(choice));
}

void Player::printerLine(Arguments& line) {
    std::string path = line.text("the path");
    line.end();
    stage_.answers.setPrinter(std::move(path));
}

void Player::clockLine(Arguments& line) {
    const std::string text = line.text("the time");
    line.end();
    const std::optional<Date> time = dateFromIso(text);
    if (!time) throw Refusal("not a date and time: " + text);
    stage_.answers.clock = time;
}

void Player::sqlLine(Arguments& line) {
    const std::string sql = line.text("the statement");
    line.end();
    stage_.transcript.print(runStatement(stage_.connect, sql));
}

}  // namespace catalogador::script
