#pragma once
#include "adapters/script/transcript.h"

namespace catalogador {
class frmCatalogador;
}

namespace catalogador::script {

/// The "state" event: everything a user could see of the form, hidden fields included. `depth` is
/// how many forms are open, `pointer` the mouse pointer.
Json stateOf(frmCatalogador& form, int depth, int pointer);

}  // namespace catalogador::script
