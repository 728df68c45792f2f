#include "adapters/desktop/real_screen.h"
#include "runtime/error.h"

namespace catalogador::desktop {

std::unique_ptr<RealScreen> realScreen(std::int16_t /*language*/) {
    throw RuntimeError(error_number::cannotCreateObject,
                       "this program was built without windows; build it with wxWidgets 3.2, or "
                       "use 'run' with --surface script");
}

}  // namespace catalogador::desktop
