#include "adapters/script/answers.h"

#include <gtest/gtest.h>

#include "platform/services.h"

namespace catalogador::script {
namespace {

TEST(ScriptAnswers, NoticesAreAcknowledgedAndUseUpNoAnswer) {
    ScriptAnswers answers;
    answers.addAnswer(answerNo);
    EXPECT_EQ(answers.answerTo(styleExclamation), 1);
    EXPECT_EQ(answers.answerTo(styleQuestion), answerNo);
}

TEST(ScriptAnswers, QuestionsTakeAnswersInOrderAndThenTheirDefaultButton) {
    ScriptAnswers answers;
    answers.addAnswer(answerNo);
    answers.addAnswer(answerYes);
    EXPECT_EQ(answers.answerTo(styleQuestion), answerNo);
    EXPECT_EQ(answers.answerTo(styleQuestionDefaultNo), answerYes);
    EXPECT_EQ(answers.answerTo(styleQuestion), answerYes);
    EXPECT_EQ(answers.answerTo(styleQuestionDefaultNo), answerNo);
}

TEST(ScriptAnswers, SaveDialogIsCancelledUnlessAnAnswerWaits) {
    ScriptAnswers answers;
    EXPECT_FALSE(answers.takeSave());
    answers.setSave(SaveChoice{"/tmp/a.xlsx", 2});
    const auto choice = answers.takeSave();
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->path, "/tmp/a.xlsx");
    EXPECT_EQ(choice->filterIndex, 2);
    EXPECT_FALSE(answers.takeSave());
}

TEST(ScriptAnswers, PrintDialogGivesTheLastPrinterOnce) {
    ScriptAnswers answers;
    answers.setPrinter("a.pdf");
    EXPECT_FALSE(answers.takePrint());
    answers.setPrint(true);
    answers.setPrinter("b.pdf");
    EXPECT_EQ(answers.takePrint(), "b.pdf");
    EXPECT_FALSE(answers.takePrint());
    answers.setPrint(true);
    answers.setPrint(false);
    EXPECT_FALSE(answers.takePrint());
}

}  // namespace
}  // namespace catalogador::script
