#pragma once
#include "adapters/checks/checks.h"
#include "adapters/script/windowless_surface.h"
#include "apps/options.h"

namespace catalogador {

/// What the program knows for checks besides the metadata: pages of the help, and how wide texts
/// are. `measure` has to live as long as the result.
checks::CheckOptions checkOptionsOf(const Options& options,
                                    const script::WindowlessSurface& measure);

}  // namespace catalogador
