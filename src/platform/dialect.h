#pragma once

namespace catalogador {

/// The databases whose statements differ; `other` gets standard SQL only.
enum class Dialect { sqlite, postgresql, mariadb, other };

}  // namespace catalogador
