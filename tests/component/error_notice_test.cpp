#include <gtest/gtest.h>

#include "modules/messages.h"
#include "modules/modErrores.h"
#include "modules/modLenguaje.h"
#include "told_host.h"

namespace catalogador {
namespace {

class ErrorNotices : public testing::Test {
  protected:
    test::ToldMessages::Error told(const std::string& procedure) {
        reportError(told_.host, message::procedureFailed, procedure, "Países",
                    RuntimeError(40002, "no such table"));
        return told_.messages.errors.back();
    }
    void load() { CargarLenguaje(told_.host, "KEY", "VEM04", "Catalogador"); }

    test::ToldHost told_;
};

TEST_F(ErrorNotices, SayWhatTheUserCouldNotDoBesideTheProcedureAndTheNumber) {
    load();
    const auto error = told("GrabarDatos");
    EXPECT_EQ(error.text, "GrabarDatos, GrabarDatos: 1500");
    EXPECT_EQ(error.detail, "40002 - no such table");
    EXPECT_EQ(error.task, "[p], [p]: 1523");
    EXPECT_EQ(error.context, "");
}

TEST_F(ErrorNotices, SayNothingOfTheTaskThatTheLanguageLibraryHasNoTextFor) {
    EXPECT_EQ(told("GrabarDatos").task, "");
    load();
    EXPECT_EQ(told("AnotherProcedure").task, "");
}

}  // namespace
}  // namespace catalogador
