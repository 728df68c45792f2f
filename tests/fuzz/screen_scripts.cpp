// A script of any lines, played on a screen.
#include <sstream>

#include "adapters/script/player.h"
#include "adapters/script/scripted_services.h"
#include "fuzz_database.h"
#include "fuzz_host.h"

namespace {

/// Enough for a screen that can be played on.
constexpr std::size_t databaseBytes = 96;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    const std::size_t start = std::min(size, databaseBytes);
    FuzzedDataProvider data(bytes, start);
    std::istringstream lines(
        std::string(reinterpret_cast<const char*>(bytes) + start, size - start));
    fuzz::FuzzHost desk(data);
    fuzz::FuzzConnection connection(data);
    std::ostringstream out;
    std::ostringstream complaints;
    script::Transcript transcript(out, true);
    script::ScriptAnswers answers;
    script::ScriptedSurface surface(desk.surface, transcript, answers);
    services::SurfaceMessages messages(surface);
    script::TranscriptStatements statements(transcript);
    script::ScriptedUtilities utilities(desk.utilities, transcript, statements, answers);
    Host host{surface,        utilities,    messages,   desk.access, desk.languages,
              desk.gridFiles, desk.printer, Regional{}, "Fuzz",      &surface};
    clsCatalogador component(host);
    component.Coneccion(&connection);
    component.Empresa(1);
    component.AppKey("VEM04");
    script::Script script(lines);
    script::Player player({script, desk.surface, surface, transcript, answers,
                           [&] { return std::make_unique<fuzz::FuzzConnection>(data); }, true,
                           complaints});
    player.run(component, {1, 0, ""});
    return 0;
}
