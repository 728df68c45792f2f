#pragma once
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "adapters/views/stored_views.h"

namespace catalogador::views {

/// How the rows of a table change.
struct RowChanges {
    /// Before and after.
    std::vector<std::pair<Row, Row>> changed;
    std::vector<Row> removed;
    std::vector<Row> added;

    [[nodiscard]] bool empty() const { return changed.empty() && removed.empty() && added.empty(); }
};

/// Rows are told by their first value, or by the first two; where one of these occurs twice before
/// or after, its rows are removed and added again, so that they end in order.
RowChanges changesOf(const std::vector<Row>& before, const std::vector<Row>& after,
                     std::size_t keyColumns);

/// What makes the database what a view's file says.
struct ViewChanges {
    std::int64_t number = 0;
    bool isNew = false;
    /// What the database is to hold.
    View wanted;
    RowChanges view;
    RowChanges fields;
    /// Those of the view's name.
    RowChanges rules;
    /// Those of the view's option.
    RowChanges rights;
    /// Users who have rights and do not exist yet.
    std::vector<std::string> newUsers;
    /// What the sequence is set to; -1 when it stays.
    std::int64_t sequence = -1;
    /// The file has other widths, which are not taken.
    bool widthsKept = false;

    [[nodiscard]] bool empty() const;
};

struct Changes {
    std::vector<ViewChanges> views;
    /// Numbers of the views that no file describes.
    std::vector<std::int64_t> missing;
    /// Names that no view has any more, whose rules go: of views that were renamed and, when they
    /// are deleted, of missing ones.
    std::vector<std::string> releasedNames;
    /// Sequences of views that were renamed; their codes go on under the new name.
    std::vector<std::string> releasedSequences;

    /// Whether the database is what the files say but for missing views and widths that are kept.
    [[nodiscard]] bool empty() const;
};

struct ChangeOptions {
    /// The widths of the files are taken; otherwise an existing view keeps its own as long as it
    /// has as many columns.
    bool widths = false;
    bool deleteMissing = false;
};

Changes changesOf(const StoredViews& stored, const std::vector<View>& files,
                  const ChangeOptions& options);

/// A line for each difference, such as "view 3: Catalogador.ABMTitulo: "Monedas" -> "Divisas"".
std::vector<std::string> linesOf(const Changes& changes, const StoredViews& stored,
                                 const ChangeOptions& options);

}  // namespace catalogador::views
