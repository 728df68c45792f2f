#include "adapters/script/screen.h"
#include "apps/commands.h"
#include "apps/component.h"
#include "apps/connections.h"
#include "apps/real_screen.h"

namespace catalogador {

int openCommand(const Options& options) {
    const auto connection = openDatabase(options);
    const Services services = servicesOf(options);
    const auto screen = realScreen(services.language);
    SurfaceMessages messages(screen->surface());
    Host host{screen->surface(), *services.utilities, messages,
              *services.access,  *services.languages, services.regional};
    const auto component = componentOf(host, options, services.language, *connection);
    const Activation& activation = options.activation;
    component->ActivarABM(activation.view, activation.code, activation.value);
    return exitPlayed;
}

}  // namespace catalogador
