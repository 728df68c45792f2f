#include "adapters/views/applying.h"

#include <algorithm>
#include <functional>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

/// Rows of a table that all have some columns alike.
struct Place {
    std::string table;
    std::string condition;
    std::vector<std::pair<std::string, Variant>> fixed;
    std::vector<Column> columns;
};

/// Where the condition takes capitals for small letters, this does not.
bool belongs(const rdoResultset& rows, const Place& place) {
    return std::all_of(place.fixed.begin(), place.fixed.end(), [&](const auto& column) {
        return toTextOrEmpty(rows.value(column.first), Regional{}) ==
               toTextOrEmpty(column.second, Regional{});
    });
}

Row rowOf(const rdoResultset& rows, const Place& place) {
    Row row;
    for (const Column& column : place.columns) {
        Variant value = rows.value(column.name);
        if (column.contents == Contents::text && !value.isNull()) value = toText(value, Regional{});
        row.push_back(fitting(value, column.contents).value_or(Variant()));
    }
    return row;
}

void setColumns(rdoResultset& rows, const Place& place, const Row* before, const Row& after) {
    for (std::size_t index = 0; index < place.columns.size(); ++index)
        if (before == nullptr ? !after[index].isNull() : (*before)[index] != after[index])
            rows.setValue(place.columns[index].name, after[index]);
}

bool taken(std::vector<Row>& rows, const Row& row) {
    const auto found = std::find(rows.begin(), rows.end(), row);
    if (found == rows.end()) return false;
    rows.erase(found);
    return true;
}

void requireAllFound(const RowChanges& left, const Place& place) {
    if (!left.changed.empty() || !left.removed.empty())
        throw RuntimeError(error_number::rowChanged,
                           "somebody has changed " + place.table + " meanwhile; try again");
}

/// Columns that the component does not know stay as they are in rows that are changed.
void writeRows(rdoConnection& connection, const Place& place, RowChanges changes) {
    if (changes.empty()) return;
    const auto rows =
        connection.OpenToWrite("Select * From " + place.table + " Where " + place.condition);
    for (; !rows->atEnd(); rows->MoveNext()) {
        if (!belongs(*rows, place)) continue;
        const Row row = rowOf(*rows, place);
        const auto changed = std::find_if(changes.changed.begin(), changes.changed.end(),
                                          [&](const auto& pair) { return pair.first == row; });
        if (changed != changes.changed.end()) {
            rows->Edit();
            setColumns(*rows, place, &changed->first, changed->second);
            rows->Update();
            changes.changed.erase(changed);
        } else if (taken(changes.removed, row)) {
            rows->Delete();
        }
    }
    requireAllFound(changes, place);
    for (const Row& row : changes.added) {
        rows->AddNew();
        for (const auto& [name, value] : place.fixed) rows->setValue(name, value);
        setColumns(*rows, place, nullptr, row);
        rows->Update();
    }
    rows->Close();
}

std::vector<Column> listOf(std::span<const Column> columns) {
    return {columns.begin(), columns.end()};
}

Place viewPlace(std::int64_t number) {
    return {"Catalogador", "ABMIDFormVista = " + decimalText(number), {}, listOf(viewColumns())};
}

Place fieldPlace(std::int64_t number) {
    return {"CatalogadorControles",
            "ACoIDFormVista = " + decimalText(number),
            {{"ACoIDFormVista", number}},
            listOf(fieldColumns())};
}

Place rulePlace(const std::string& name) {
    return {"genForaneas", "1 = 1", {{"ForTablaAControlar", name}}, listOf(ruleColumns())};
}

Place rightPlace(const std::string& option) {
    std::vector<Column> columns = listOf(rightColumns());
    columns.front() = {"PerUsuID", Contents::longNumber};
    return {"accPermisos", "1 = 1", {{"PerOpcion", option}}, std::move(columns)};
}

using Users = std::map<std::string, std::int64_t>;

void addUsers(rdoSession& session, const std::vector<std::string>& names, Users& users) {
    for (const std::string& name : names) {
        std::int64_t number = 0;
        for (const auto& row : session.query("Select Max(UsuID) From accUsuarios"))
            if (const auto highest = fitting(row.front(), Contents::longNumber);
                highest && !highest->isNull())
                number = std::max<std::int64_t>(*highest->as<std::int64_t>(), 0);
        users[name] = ++number;
        session.run("Insert Into accUsuarios (UsuID, UsuNombre) Values (?, ?)", {number, name});
    }
}

/// The rights with the numbers of the users in the place of their names.
RowChanges byNumber(RowChanges changes, const Users& users) {
    const auto change = [&](Row& row) { row.front() = users.at(*row.front().as<std::string>()); };
    for (auto& [before, after] : changes.changed) {
        change(before);
        change(after);
    }
    std::for_each(changes.removed.begin(), changes.removed.end(), change);
    std::for_each(changes.added.begin(), changes.added.end(), change);
    return changes;
}

void setSequence(rdoSession& session, const StoredViews& stored, const std::string& name,
                 std::int64_t last) {
    if (stored.sequences.contains(name))
        session.run("Update genNumeradores Set NumUltimo = ? Where NumNombre = ?", {last, name});
    else
        session.run("Insert Into genNumeradores (NumNombre, NumUltimo) Values (?, ?)",
                    {name, last});
}

void deleteView(rdoConnection& connection, const View& view) {
    const std::int64_t number = view.number();
    writeRows(connection, fieldPlace(number), {{}, view.fields, {}});
    writeRows(connection, viewPlace(number), {{}, {view.view}, {}});
}

}  // namespace

void applyChanges(rdoConnection& connection, const Changes& changes, const StoredViews& stored,
                  const ChangeOptions& options) {
    rdoSession& session = *connection.session();
    // Before others are added, which a key might take for the same.
    if (options.deleteMissing)
        for (const std::int64_t number : changes.missing)
            deleteView(connection, stored.views.at(number));
    for (const std::string& name : changes.releasedNames)
        writeRows(connection, rulePlace(name), {{}, stored.rules.at(name), {}});
    for (const std::string& name : changes.releasedSequences)
        session.run("Delete From genNumeradores Where NumNombre = ?", {name});
    Users users = stored.users;
    for (const ViewChanges& view : changes.views) {
        writeRows(connection, viewPlace(view.number), view.view);
        writeRows(connection, fieldPlace(view.number), view.fields);
        if (view.sequence >= 0) setSequence(session, stored, view.wanted.name(), view.sequence);
        writeRows(connection, rulePlace(view.wanted.name()), view.rules);
        addUsers(session, view.newUsers, users);
        writeRows(connection, rightPlace(view.wanted.option()), byNumber(view.rights, users));
    }
}

}  // namespace catalogador::views
