#pragma once
#include <functional>
#include <memory>
#include <string>

#include "adapters/script/transcript.h"

namespace catalogador::script {

/// Opens a connection to the database that the screen works on.
using ConnectionFactory = std::function<std::unique_ptr<rdoConnection>()>;

/// Runs a statement on a connection of its own and gives the "sql" event. What the database refuses
/// is told in the event's "error".
Json runStatement(const ConnectionFactory& connect, const std::string& sql);

}  // namespace catalogador::script
