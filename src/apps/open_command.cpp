#include <iostream>

#include "adapters/desktop/real_screen.h"
#include "adapters/export/grid_file_writer.h"
#include "adapters/script/scripted_services.h"
#include "adapters/script/traced_surface.h"
#include "adapters/services/window_sizes.h"
#include "apps/commands.h"
#include "apps/component.h"
#include "apps/connections.h"
#include "apps/view_notice.h"

namespace catalogador {

int openCommand(const Options& options) {
    const auto connection = openDatabase(options);
    tellWhenViewIsMissing(std::cerr, *connection, options);
    std::unique_ptr<desktop::RealScreen> screen;
    const Services services =
        servicesOf(options, [&screen](Window& window, int command, std::int32_t data) {
            screen->showHelp(window, command, data);
        });
    screen = desktop::realScreen(services.language);
    if (!options.fresh) screen->rememberSizes(services::windowMemoryOf(userOf(options)));
    script::Transcript transcript(std::cout, options.trace);
    script::TranscriptStatements statements(transcript);
    if (options.trace) connection->setListener(&statements);
    script::TracedSurface surface(screen->surface(), transcript);
    script::TracedUtilities utilities(*services.utilities, transcript, statements);
    script::TracedAccess access(*services.access, transcript, statements);
    services::SurfaceMessages messages(surface);
    exporting::GridFileWriter gridFiles;
    Host host{surface,   utilities,         messages,         access, *services.languages,
              gridFiles, screen->printer(), services.regional};
    const auto component = componentOf(host, options, services.language, *connection);
    const script::Activation& activation = options.activation;
    component->ActivarABM(activation.view, activation.code, activation.value);
    return exitPlayed;
}

}  // namespace catalogador
