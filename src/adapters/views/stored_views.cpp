#include "adapters/views/stored_views.h"

#include <algorithm>
#include <functional>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador::views {

namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw RuntimeError(error_number::invalidProcedureCall,
                       text + "; correct it in the database ('catalogador check' says more)");
}

bool canStandInFile(const std::string& text) {
    return text.find('\0') == std::string::npos && replacingInvalidBytes(text) == text;
}

/// Null for a column that the table lacks.
Variant valueIn(const rdoResultset& rows, std::string_view name) {
    for (int column = 0; column < rows.columnCount(); ++column)
        if (equalText(rows.column(column).name, name)) return rows.value(column);
    return {};
}

Row rowOf(const rdoResultset& rows, std::span<const Column> columns, const std::string& place) {
    Row result;
    for (const Column& column : columns) {
        Variant found = valueIn(rows, column.name);
        // SQLite keeps a number as it is in a column that was made for something else.
        if (column.contents == Contents::text && !found.isNull()) found = toText(found, Regional{});
        const auto value = fitting(found, column.contents);
        if (!value)
            refuse(place + ": " + std::string(column.name) + " is not " +
                   std::string(nameOf(column.contents)));
        const auto* text = value->as<std::string>();
        if (text != nullptr && !canStandInFile(*text))
            refuse(place + ": " + std::string(column.name) + " holds a NUL or is not UTF-8");
        result.push_back(*value);
    }
    return result;
}

void forEachRow(rdoConnection& connection, const std::string& sql,
                const std::function<void(const rdoResultset&)>& each) {
    const auto rows = connection.OpenResultset(sql);
    for (; !rows->atEnd(); rows->MoveNext()) each(*rows);
    rows->Close();
}

std::optional<std::int64_t> numberIn(const rdoResultset& rows, std::string_view name) {
    const auto value = fitting(valueIn(rows, name), Contents::longNumber);
    if (!value || value->isNull()) return std::nullopt;
    return *value->as<std::int64_t>();
}

std::string textIn(const rdoResultset& rows, std::string_view name) {
    return toTextOrEmpty(valueIn(rows, name), Regional{});
}

void readViews(rdoConnection& connection, StoredViews& stored) {
    forEachRow(connection, "Select * From Catalogador", [&](const rdoResultset& rows) {
        const std::string number = textIn(rows, "ABMIDFormVista");
        View view;
        view.view = rowOf(rows, viewColumns(), "view " + number);
        const auto* id = view.view.front().as<std::int64_t>();
        if (id == nullptr || *id < 1)
            refuse("view " + number + ": the number is not from 1 to 32767");
        if (!stored.views.emplace(*id, std::move(view)).second)
            refuse("view " + number + " stands twice in Catalogador");
    });
    forEachRow(connection, "Select * From CatalogadorControles", [&](const rdoResultset& rows) {
        const auto view = stored.views.find(numberIn(rows, "ACoIDFormVista").value_or(0));
        if (view == stored.views.end()) return;
        view->second.fields.push_back(
            rowOf(rows, fieldColumns(), "view " + decimalText(view->first) + ", a field"));
        if (view->second.fields.back().front().isNull())
            refuse("view " + decimalText(view->first) + " has a field without ACoKeyControl");
    });
}

void readRules(rdoConnection& connection, StoredViews& stored) {
    forEachRow(connection, "Select * From genForaneas", [&](const rdoResultset& rows) {
        const std::string name = textIn(rows, "ForTablaAControlar");
        stored.rules[name].push_back(rowOf(rows, ruleColumns(), "a rule of " + name));
    });
}

void readSequences(rdoConnection& connection, StoredViews& stored) {
    forEachRow(connection, "Select * From genNumeradores", [&](const rdoResultset& rows) {
        stored.sequences.emplace(textIn(rows, "NumNombre"), numberIn(rows, "NumUltimo"));
    });
    forEachRow(connection,
               "Select CTeIDTipoVista As View, Max(CTeCodigo) As Code From genCodigoTexto Group By "
               "CTeIDTipoVista",
               [&](const rdoResultset& rows) {
                   const auto view = fitting(rows.value(0), Contents::longNumber);
                   const auto code = fitting(rows.value(1), Contents::longNumber);
                   if (view && code && !view->isNull() && !code->isNull())
                       stored.highestCodes[*view->as<std::int64_t>()] = *code->as<std::int64_t>();
               });
}

void readRights(rdoConnection& connection, StoredViews& stored) {
    std::map<std::int64_t, std::string> names;
    forEachRow(
        connection, "Select * From accUsuarios Order By UsuID", [&](const rdoResultset& rows) {
            const auto number = numberIn(rows, "UsuID");
            const std::string name = textIn(rows, "UsuNombre");
            if (number && canStandInFile(name) && stored.users.try_emplace(name, *number).second)
                names[*number] = name;
        });
    forEachRow(connection, "Select * From accPermisos", [&](const rdoResultset& rows) {
        const auto user = names.find(numberIn(rows, "PerUsuID").value_or(0));
        if (user == names.end()) return;
        const std::string option = textIn(rows, "PerOpcion");
        Row right = rowOf(rows, rightColumns(), "a right for " + option);
        right.front() = user->second;
        stored.rights[option].push_back(std::move(right));
    });
}

template <class Key, class Value>
Value found(const std::map<Key, Value>& map, const Key& key) {
    const auto place = map.find(key);
    return place == map.end() ? Value() : place->second;
}

void giveWhatIsShared(StoredViews& stored) {
    for (auto& [number, view] : stored.views) {
        view.hasSequence = !view.name().empty() && stored.sequences.contains(view.name());
        if (!view.name().empty()) view.rules = found(stored.rules, view.name());
        if (!view.option().empty()) view.rights = found(stored.rights, view.option());
        putInOrder(view);
    }
}

}  // namespace

const View* StoredViews::view(std::int64_t number) const {
    const auto place = views.find(number);
    return place == views.end() ? nullptr : &place->second;
}

StoredViews readStored(rdoConnection& connection, const checks::SchemaFacts& schema) {
    StoredViews stored;
    const auto has = [&](const char* table) { return schema.table(table) != nullptr; };
    if (has("Catalogador") && has("CatalogadorControles")) readViews(connection, stored);
    if (has("genForaneas")) readRules(connection, stored);
    if (has("genNumeradores") && has("genCodigoTexto")) readSequences(connection, stored);
    if (has("accUsuarios") && has("accPermisos")) readRights(connection, stored);
    giveWhatIsShared(stored);
    return stored;
}

}  // namespace catalogador::views
