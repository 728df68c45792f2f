#pragma once
#include <deque>
#include <optional>
#include <string>

#include "platform/surface.h"
#include "runtime/variant.h"

namespace catalogador::script {

/// Whether a message box of that style has more than one button.
bool isQuestion(int style);
/// The answer of the box's default button: 1 of a notice, 6 or 7 of a question.
int defaultAnswer(int style);

/// What a script has said beforehand about boxes, dialogs and the time.
class ScriptAnswers {
  public:
    /// The date and time of the server; nothing for the real one.
    std::optional<Date> clock;

    void addAnswer(int answer) { answers_.push_back(answer); }
    /// The answer to a message box. Only questions use up what was added.
    int answerTo(int style);

    /// nullopt cancels. Holds for one dialog.
    void setSave(std::optional<SaveChoice> choice) { save_ = std::move(choice); }
    std::optional<SaveChoice> takeSave();

    /// The file that the printer writes to from here on.
    void setPrinter(std::string path) { printer_ = std::move(path); }
    void setPrint(bool print) { print_ = print; }
    /// The file to print to, nullopt when the dialog is cancelled. Holds for one dialog.
    std::optional<std::string> takePrint();

  private:
    std::deque<int> answers_;
    std::optional<SaveChoice> save_;
    std::string printer_;
    bool print_ = false;
};

}  // namespace catalogador::script
