#pragma once
#include <cstdint>
#include <iosfwd>

#include "apps/options.h"
#include "platform/rdo.h"

namespace catalogador {

/// Says in one line when the view that is to be opened has no row, or when the tables of views
/// cannot be read: the screen itself would only stay empty. The line names `check`.
void tellWhenViewIsMissing(std::ostream& out, rdoConnection& connection, const Options& options);

}  // namespace catalogador
