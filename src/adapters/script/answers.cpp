#include "adapters/script/answers.h"

#include <utility>

#include "platform/services.h"

namespace catalogador::script {

namespace {
constexpr int buttonsOfStyle = 7;
constexpr int secondButtonIsDefault = 0x100;
constexpr int answerAcknowledged = 1;
}  // namespace

bool isQuestion(int style) {
    return (style & buttonsOfStyle) != 0;
}

int defaultAnswer(int style) {
    if (!isQuestion(style)) return answerAcknowledged;
    return (style & secondButtonIsDefault) != 0 ? answerNo : answerYes;
}

int ScriptAnswers::answerTo(int style) {
    if (!isQuestion(style) || answers_.empty()) return defaultAnswer(style);
    const int answer = answers_.front();
    answers_.pop_front();
    return answer;
}

std::optional<SaveChoice> ScriptAnswers::takeSave() {
    return std::exchange(save_, std::nullopt);
}

std::optional<std::string> ScriptAnswers::takePrint() {
    if (!std::exchange(print_, false)) return std::nullopt;
    return printer_;
}

}  // namespace catalogador::script
