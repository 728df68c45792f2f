#include "adapters/script/scripted_services.h"

#include <gtest/gtest.h>

#include <sstream>

#include "adapters/odbc/odbc_connection.h"
#include "adapters/script/windowless_surface.h"
#include "plain_services.h"
#include "small_window.h"

namespace catalogador::script {
namespace {

class ScriptedServices : public testing::Test {
  protected:
    std::ostringstream out_;
    Transcript transcript_{out_, true};
    TranscriptStatements statements_{transcript_};
    ScriptAnswers answers_;
    PlainUtilities real_;
    ScriptedUtilities utilities_{real_, transcript_, statements_, answers_};
    std::unique_ptr<rdoConnection> connection_ =
        odbc::OdbcConnection::open(odbc::OdbcConnection::sqliteConnectionString(":memory:"));
};

TEST_F(ScriptedServices, TraceTheCallsWithTheirResults) {
    EXPECT_EQ(utilities_.ProximoCodigo(*connection_, "Paises"), 17);
    EXPECT_EQ(utilities_.FechaServidor(*connection_), (Date{2025, 12, 31, 23, 59, 58}));
    EXPECT_EQ(out_.str(),
              "{\"event\":\"service\",\"call\":\"ProximoCodigo\",\"argument\":\"Paises\","
              "\"result\":17}\n"
              "{\"event\":\"service\",\"call\":\"FechaServidor\",\"argument\":\"\","
              "\"result\":\"2025-12-31 23:59:58\"}\n");
}

TEST_F(ScriptedServices, TheClockOfTheScriptReplacesTheServersOne) {
    answers_.clock = Date{2026, 3, 1, 10, 0, 0};
    EXPECT_EQ(utilities_.FechaServidor(*connection_), (Date{2026, 3, 1, 10, 0, 0}));
    EXPECT_EQ(real_.calls, 0);
}

TEST_F(ScriptedServices, OtherProgramsAreNotStartedButPrinted) {
    WindowlessSurface surface;
    SmallWindow window(surface);
    utilities_.AbrirArchivo("/tmp/a.xlsx");
    utilities_.MostrarAyuda(window, 15, 25);
    EXPECT_EQ(real_.calls, 0);
    EXPECT_EQ(out_.str(),
              "{\"event\":\"file-opened\",\"path\":\"/tmp/a.xlsx\"}\n"
              "{\"event\":\"help\",\"command\":15,\"data\":25}\n");
}

TEST_F(ScriptedServices, TraceQuestionsAboutRights) {
    PlainAccess real;
    TracedAccess access(real, transcript_, statements_);
    const auto questions = access.create();
    EXPECT_EQ(questions->PermisosOpcion(*connection_, "", "Clientes", 3), "ABM");
    std::int32_t user = -1;
    questions->UsuarioActual(*connection_, "", user);
    EXPECT_EQ(user, 1);
    EXPECT_EQ(out_.str(),
              "{\"event\":\"access\",\"option\":\"Clientes\",\"company\":3,\"appKey\":\"\"}\n");
}

}  // namespace
}  // namespace catalogador::script
