#include <fstream>
#include <iostream>

#include "adapters/desktop/real_screen.h"
#include "adapters/export/grid_file_writer.h"
#include "adapters/pdf/paper_fonts.h"
#include "adapters/pdf/pdf_writer.h"
#include "adapters/script/scripted_printer.h"
#include "adapters/script/scripted_services.h"
#include "adapters/script/windowless_surface.h"
#include "adapters/system/paths.h"
#include "apps/commands.h"
#include "apps/component.h"
#include "apps/connections.h"
#include "apps/playing.h"
#include "apps/view_notice.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

/// Everything that stands between the component and a transcript.
class PlayedHost {
  public:
    PlayedHost(std::ostream& out, const Options& options, const Services& services, Surface& screen,
               rdoConnection& connection)
        : transcript(out, options.trace),
          surface(screen, transcript, answers),
          statements_(transcript),
          utilities_(*services.utilities, transcript, statements_, answers),
          access_(*services.access, transcript, statements_),
          messages_(surface),
          connection_(connection),
          language_(services.language),
          printer_(*fonts_, pdf::writePdf, transcript, answers),
          host_{surface,    utilities_, messages_,         access_,       *services.languages,
                gridFiles_, printer_,   services.regional, "Catalogador", &surface} {
        connection_.setListener(&statements_);
    }
    ~PlayedHost() { connection_.setListener(nullptr); }
    PlayedHost(const PlayedHost&) = delete;
    PlayedHost& operator=(const PlayedHost&) = delete;

    /// Null after the event that says why it could not be created.
    std::unique_ptr<clsCatalogador> component(const Options& options) {
        try {
            return componentOf(host_, options, language_, connection_);
        } catch (const RuntimeError& error) {
            transcript.print({{"event", "failed"},
                              {"number", error.number()},
                              {"source", error.source()},
                              {"description", error.description()}});
            return nullptr;
        }
    }

    script::Transcript transcript;
    script::ScriptAnswers answers;
    script::ScriptedSurface surface;

  private:
    script::TranscriptStatements statements_;
    script::ScriptedUtilities utilities_;
    script::TracedAccess access_;
    services::SurfaceMessages messages_;
    rdoConnection& connection_;
    std::int16_t language_;
    exporting::GridFileWriter gridFiles_;
    std::unique_ptr<FontMeasure> fonts_ = pdf::paperFonts();
    script::ScriptedPrinter printer_;
    Host host_;
};

std::unique_ptr<std::ifstream> openScript(const std::string& name) {
    if (name == "-") return nullptr;
    auto file = std::make_unique<std::ifstream>(pathOf(name));
    // A folder opens, but nothing can be read from it.
    if (!*file || (file->peek() == std::ifstream::traits_type::eof() && file->bad()))
        throw RuntimeError(error_number::invalidProcedureCall,
                           "cannot read the script " + name + "; check the path after --script");
    file->clear();
    return file;
}

std::unique_ptr<PlayedScreen> screenOf(const Options& options, const Services& services) {
    if (options.surface == "wx") return desktop::realScreen(services.language);
    return std::make_unique<script::WindowlessSurface>();
}

}  // namespace

int playScript(const Options& options, script::Script& script, rdoConnection& connection,
               std::ostream& out) {
    const Services services = servicesOf(options);
    const auto screen = screenOf(options, services);
    PlayedHost host(out, options, services, screen->surface(), connection);
    const auto component = host.component(options);
    if (!component) return exitUnusable;
    script::Player player({script, *screen, host.surface, host.transcript, host.answers,
                           [&options] { return openOtherDesk(options); }, options.keepGoing,
                           std::cerr});
    return player.run(*component, options.activation);
}

int runCommand(const Options& options) {
    const auto file = openScript(options.script);
    script::Script script(file ? static_cast<std::istream&>(*file) : std::cin);
    const auto connection = openDatabase(options);
    tellWhenViewIsMissing(std::cerr, *connection, options);
    return playScript(options, script, *connection, std::cout);
}

int addCommand(const Options& options) {
    const auto connection = openDatabase(options);
    const Services services = servicesOf(options);
    script::WindowlessSurface screen;
    PlayedHost host(std::cout, options, services, screen, *connection);
    const auto component = host.component(options);
    if (!component) return exitUnusable;
    host.transcript.print(script::addedEvent(*component, options.activation.view, options.sequence,
                                             options.activation.value));
    return exitPlayed;
}

}  // namespace catalogador
