#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "adapters/checks/finding.h"
#include "adapters/checks/metadata.h"
#include "platform/rdo.h"

namespace catalogador::checks {

struct CheckOptions {
    /// The views to check; all of them when there is none.
    std::vector<std::int64_t> views;
    /// What stands for the company in statements.
    std::int16_t company = 1;
    /// The help ids that have a page; nullopt when there is no help to compare with.
    std::optional<std::set<std::int64_t>> helpPages;
    /// Twips that a text takes on the screen; empty when nothing is to be measured.
    std::function<int(std::string_view)> textWidth;
};

struct CheckResult {
    /// Ordered by view (those of no view first), table, column, key and number.
    std::vector<Finding> findings;
    /// How many views were checked.
    int views = 0;
};

/// Reads the metadata of a database, has its statements prepared and says what is wrong. Nothing is
/// written, whatever the metadata says. Raises RuntimeError when the database cannot be read.
CheckResult checkMetadata(rdoConnection& connection, const CheckOptions& options);
/// The same for metadata that is not in the database, or not yet.
CheckResult checkMetadata(const Database& database, const Metadata& metadata,
                          const CheckOptions& options);

}  // namespace catalogador::checks
