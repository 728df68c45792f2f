#pragma once
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/checks/database.h"
#include "adapters/checks/schema_facts.h"

namespace catalogador::checks {

/// What has to be known of the records of a view.
struct RecordFacts {
    /// Sorted.
    std::vector<std::int64_t> codes;
    /// Characters of the longest CTeTextoCorto and CTeTextoLargo.
    std::array<std::int64_t, 2> longest{};
    /// The different values of CTeValor1 to CTeValor3, as texts.
    std::array<std::vector<std::string>, 3> values;
};

/// By view. Empty when there is no table of records. Raises RuntimeError.
std::map<std::int64_t, RecordFacts> readRecords(const Database& database,
                                                const SchemaFacts& schema);

/// Calls `each` with the text of the column in every row, an empty one for Null.
void forEachText(rdoResultset& rows, int column, const std::function<void(std::string_view)>& each);

}  // namespace catalogador::checks
