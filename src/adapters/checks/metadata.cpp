#include "adapters/checks/metadata.h"

#include <algorithm>
#include <set>

#include "adapters/checks/numbers.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

/// A row by the names of its columns; a column that the table lacks reads as Null.
class NamedRow {
  public:
    explicit NamedRow(const rdoResultset& rows) : rows_(rows) {}

    [[nodiscard]] Text text(std::string_view name) const {
        for (int column = 0; column < rows_.columnCount(); ++column) {
            if (!equalText(rows_.column(column).name, name)) continue;
            const Variant value = rows_.value(column);
            if (value.isNull()) return std::nullopt;
            return toText(value, Regional{});
        }
        return std::nullopt;
    }
    [[nodiscard]] std::string textOrEmpty(std::string_view name) const {
        return text(name).value_or(std::string());
    }
    [[nodiscard]] std::int64_t number(std::string_view name) const {
        return wholeNumber(textOrEmpty(name)).value_or(0);
    }

  private:
    const rdoResultset& rows_;
};

/// Calls `each` for every row of a table that there is.
void forEachRow(const Database& database, const SchemaFacts& schema, const std::string& table,
                const std::function<void(const NamedRow&)>& each) {
    if (schema.table(table) == nullptr) return;
    database.read("Select * From " + table, [&](rdoResultset& rows) {
        for (; !rows.atEnd(); rows.MoveNext()) each(NamedRow(rows));
    });
}

ViewRow viewOf(const NamedRow& row) {
    ViewRow view;
    view.number = row.number("ABMIDFormVista");
    view.title = row.text("ABMTitulo");
    view.name = row.text("ABMNombreVista");
    view.width = row.text("ABMAnchoForm");
    view.listing = row.text("ABMConsulta");
    view.headers = row.text("ABMColumnasNombre");
    view.widths = row.text("ABMColumnasAncho");
    view.alignments = row.text("ABMColumnasAlineacion");
    view.duplicates = row.text("ABMSQLValidarDuplicados");
    view.help = row.text("ABMIDAyuda");
    view.access = row.text("ABMValidarAcceso");
    return view;
}

FieldRow fieldOf(const NamedRow& row) {
    FieldRow field;
    field.view = row.number("ACoIDFormVista");
    field.key = row.textOrEmpty("ACoKeyControl");
    field.caption = row.text("ACoCaption");
    field.length = row.text("ACoLen");
    field.required = row.text("ACoObligatorio");
    field.duplicate = row.text("ACoDuplicado");
    field.f2 = row.text("ACoAccionF2");
    field.kind = row.text("ACoTipo");
    field.source = row.text("ACoDatosCombo");
    return field;
}

void readViews(const Database& database, Metadata& metadata) {
    forEachRow(database, metadata.schema, "Catalogador", [&](const NamedRow& row) {
        ViewRow view = viewOf(row);
        const auto [place, added] = metadata.views.try_emplace(view.number, std::move(view));
        if (!added) ++place->second.rows;
    });
    forEachRow(database, metadata.schema, "CatalogadorControles", [&](const NamedRow& row) {
        FieldRow field = fieldOf(row);
        const auto view = metadata.views.find(field.view);
        (view == metadata.views.end() ? metadata.fieldsOfNoView : view->second.fields)
            .push_back(std::move(field));
    });
}

void readRules(const Database& database, Metadata& metadata) {
    forEachRow(database, metadata.schema, "genForaneas", [&](const NamedRow& row) {
        metadata.rules.push_back({row.textOrEmpty("ForTablaAControlar"),
                                  row.textOrEmpty("ForOrdenSQL"), row.text("ForSQLForanea"),
                                  row.textOrEmpty("ForMensaje"), row.textOrEmpty("ForSQLUpdate")});
    });
}

void readServices(const Database& database, Metadata& metadata) {
    forEachRow(database, metadata.schema, "genNumeradores", [&](const NamedRow& row) {
        metadata.sequences.emplace(row.textOrEmpty("NumNombre"), row.text("NumUltimo"));
    });
    std::set<std::string> users;
    forEachRow(database, metadata.schema, "accUsuarios",
               [&](const NamedRow& row) { users.insert(row.textOrEmpty("UsuID")); });
    forEachRow(database, metadata.schema, "accPermisos", [&](const NamedRow& row) {
        if (users.contains(row.textOrEmpty("PerUsuID")))
            metadata.rights.push_back(
                {row.textOrEmpty("PerOpcion"), row.textOrEmpty("PerDerechos")});
    });
}

}  // namespace

const FieldRow* ViewRow::field(std::string_view key) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [&](const FieldRow& row) { return row.key == key; });
    return found == fields.end() ? nullptr : &*found;
}

bool ViewRow::perCompany() const {
    return listing && containsText(*listing, "[prmIdEmpresa]", Compare::text);
}

Metadata readMetadata(const Database& database) {
    Metadata metadata;
    metadata.schema = SchemaFacts::of(database);
    readViews(database, metadata);
    readRules(database, metadata);
    readServices(database, metadata);
    metadata.records = readRecords(database, metadata.schema);
    return metadata;
}

const std::string& orEmpty(const Text& text) {
    static const std::string empty;
    return text ? *text : empty;
}

}  // namespace catalogador::checks
