#pragma once
#include "adapters/views/changes.h"
#include "platform/rdo.h"

namespace catalogador::views {

/// Makes the changes in the transaction that the connection is in. Records are not touched.
/// Raises RuntimeError; nothing must be committed then.
void applyChanges(rdoConnection& connection, const Changes& changes, const StoredViews& stored,
                  const ChangeOptions& options);

}  // namespace catalogador::views
