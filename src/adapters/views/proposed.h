#pragma once
#include "adapters/checks/metadata.h"
#include "adapters/views/changes.h"

namespace catalogador::views {

/// The metadata as it would be after the changes.
checks::Metadata proposed(checks::Metadata metadata, const Changes& changes,
                          const StoredViews& stored, const ChangeOptions& options);

}  // namespace catalogador::views
