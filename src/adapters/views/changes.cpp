#include "adapters/views/changes.h"

#include <algorithm>

#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

constexpr std::size_t keyOfRights = 2;

Row keyOf(const Row& row, std::size_t keyColumns) {
    return {row.begin(), row.begin() + static_cast<std::ptrdiff_t>(keyColumns)};
}

std::vector<Row> withKey(const std::vector<Row>& rows, const Row& key) {
    std::vector<Row> found;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(found),
                 [&](const Row& row) { return keyOf(row, key.size()) == key; });
    return found;
}

void addChanges(RowChanges& changes, const std::vector<Row>& before,
                const std::vector<Row>& after) {
    if (before == after) return;
    if (before.size() == 1 && after.size() == 1) {
        changes.changed.emplace_back(before.front(), after.front());
        return;
    }
    changes.removed.insert(changes.removed.end(), before.begin(), before.end());
    changes.added.insert(changes.added.end(), after.begin(), after.end());
}

std::size_t entriesIn(const Variant& list) {
    return splitText(toTextOrEmpty(list, Regional{}), "|").size();
}

/// The view with the widths that it is to have.
View wantedView(const View& file, const View* stored, const ChangeOptions& options, bool& kept) {
    View wanted = file;
    kept = false;
    if (stored == nullptr || options.widths) return wanted;
    const Variant& widths = valueOf(*stored, "ABMColumnasAncho");
    const bool sameColumns = entriesIn(valueOf(*stored, "ABMColumnasNombre")) ==
                             entriesIn(valueOf(file, "ABMColumnasNombre"));
    if (entriesIn(widths) == 0 || !sameColumns) return wanted;
    kept = widths != valueOf(file, "ABMColumnasAncho");
    wanted.view[placeOf(viewColumns(), "ABMColumnasAncho")] = widths;
    return wanted;
}

template <class Value>
Value entryOf(const std::map<std::string, Value>& map, const std::string& name) {
    const auto found = map.find(name);
    return found == map.end() ? Value() : found->second;
}

std::vector<Row> inOrder(std::vector<Row> rows, std::vector<Row> View::*part) {
    View view;
    view.*part = std::move(rows);
    putInOrder(view);
    return view.*part;
}

/// Compares the files with the database, each name and option once.
class Comparison {
  public:
    Comparison(const StoredViews& stored, const ChangeOptions& options)
        : stored_(stored), options_(options) {}

    void compare(Changes& changes, const View& file) {
        const View* before = stored_.view(file.number());
        ViewChanges found;
        found.number = file.number();
        found.isNew = before == nullptr;
        found.wanted = wantedView(file, before, options_, found.widthsKept);
        if (before == nullptr)
            found.view.added = {found.wanted.view};
        else
            found.view = changesOf({before->view}, {found.wanted.view}, 1);
        found.fields = changesOf(before == nullptr ? std::vector<Row>() : before->fields,
                                 found.wanted.fields, 1);
        compareShared(found);
        compareSequence(found, before);
        changes.views.push_back(std::move(found));
    }

  private:
    void compareShared(ViewChanges& found) {
        const std::string name = found.wanted.name();
        if (!name.empty() && names_.insert(name).second)
            found.rules = changesOf(inOrder(entryOf(stored_.rules, name), &View::rules),
                                    found.wanted.rules, 1);
        const std::string option = found.wanted.option();
        if (option.empty() || !options_of_views_.insert(option).second) return;
        found.rights = changesOf(inOrder(entryOf(stored_.rights, option), &View::rights),
                                 found.wanted.rights, keyOfRights);
        for (const Row& right : found.wanted.rights) {
            const std::string user = *right.front().as<std::string>();
            if (!stored_.users.contains(user) && users_.insert(user).second)
                found.newUsers.push_back(user);
        }
    }

    void compareSequence(ViewChanges& found, const View* before) {
        const std::string name = found.wanted.name();
        if (!found.wanted.hasSequence || !sequences_.insert(name).second) return;
        std::int64_t needed = 0;
        if (const auto highest = stored_.highestCodes.find(found.number);
            highest != stored_.highestCodes.end())
            needed = std::max<std::int64_t>(highest->second, 0);
        const auto known = stored_.sequences.find(name);
        if (known == stored_.sequences.end()) {
            // A view that gets another name goes on where it was.
            if (before != nullptr)
                needed = std::max(needed, entryOf(stored_.sequences, before->name()).value_or(0));
            found.sequence = needed;
        } else if (!known->second || *known->second < needed) {
            found.sequence = needed;
        }
    }

    const StoredViews& stored_;
    const ChangeOptions& options_;
    std::set<std::string> names_;
    std::set<std::string> options_of_views_;
    std::set<std::string> users_;
    std::set<std::string> sequences_;
};

bool isDescribed(const std::vector<View>& files, std::int64_t number) {
    return std::any_of(files.begin(), files.end(),
                       [&](const View& file) { return file.number() == number; });
}

void findReleased(Changes& changes, const StoredViews& stored, const std::vector<View>& files,
                  const ChangeOptions& options) {
    std::set<std::string> used;
    for (const View& file : files) used.insert(file.name());
    for (const auto& [number, view] : stored.views)
        if (!isDescribed(files, number) && !options.deleteMissing) used.insert(view.name());
    std::set<std::string> released;
    for (const auto& [number, view] : stored.views) {
        const std::string name = view.name();
        if (name.empty() || used.contains(name) || !released.insert(name).second) continue;
        if (stored.rules.contains(name)) changes.releasedNames.push_back(name);
        if (isDescribed(files, number) && stored.sequences.contains(name))
            changes.releasedSequences.push_back(name);
    }
}

}  // namespace

RowChanges changesOf(const std::vector<Row>& before, const std::vector<Row>& after,
                     std::size_t keyColumns) {
    RowChanges changes;
    std::vector<Row> keys;
    for (const auto* rows : {&before, &after})
        for (const Row& row : *rows) {
            Row key = keyOf(row, keyColumns);
            if (std::find(keys.begin(), keys.end(), key) == keys.end())
                keys.push_back(std::move(key));
        }
    for (const Row& key : keys) addChanges(changes, withKey(before, key), withKey(after, key));
    return changes;
}

bool ViewChanges::empty() const {
    return view.empty() && fields.empty() && rules.empty() && rights.empty() && newUsers.empty() &&
           sequence < 0;
}

bool Changes::empty() const {
    return releasedNames.empty() && releasedSequences.empty() &&
           std::all_of(views.begin(), views.end(),
                       [](const ViewChanges& view) { return view.empty(); });
}

Changes changesOf(const StoredViews& stored, const std::vector<View>& files,
                  const ChangeOptions& options) {
    Changes changes;
    Comparison comparison(stored, options);
    for (const View& file : files) comparison.compare(changes, file);
    for (const auto& [number, view] : stored.views)
        if (!isDescribed(files, number)) changes.missing.push_back(number);
    findReleased(changes, stored, files, options);
    return changes;
}

}  // namespace catalogador::views
