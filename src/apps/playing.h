#pragma once
#include <iosfwd>

#include "adapters/script/script_line.h"
#include "apps/options.h"
#include "platform/rdo.h"

namespace catalogador {

/// Plays a screen script and prints the transcript. Gives the exit status of `run`.
int playScript(const Options& options, script::Script& script, rdoConnection& connection,
               std::ostream& out);

}  // namespace catalogador
