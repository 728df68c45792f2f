#pragma once
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "adapters/checks/schema_facts.h"
#include "adapters/views/view.h"
#include "platform/rdo.h"

namespace catalogador::views {

/// The views of a database as they stand there.
struct StoredViews {
    /// By number.
    std::map<std::int64_t, View> views;
    /// What each sequence was drawn to last, by name; nullopt for Null.
    std::map<std::string, std::optional<std::int64_t>> sequences;
    /// By the name of the view or table that they protect.
    std::map<std::string, std::vector<Row>> rules;
    /// Those of users who exist, by option.
    std::map<std::string, std::vector<Row>> rights;
    /// The highest code of the records of each view.
    std::map<std::int64_t, std::int64_t> highestCodes;
    /// The numbers of the users by their names.
    std::map<std::string, std::int64_t> users;

    /// Null when there is none.
    [[nodiscard]] const View* view(std::int64_t number) const;
};

/// Reads them. What is missing (tables, columns) reads as empty. Raises RuntimeError, also for what
/// a file could not say: a view's number that occurs twice or is none, a number that is none, a
/// text that is not UTF-8.
StoredViews readStored(rdoConnection& connection, const checks::SchemaFacts& schema);

}  // namespace catalogador::views
