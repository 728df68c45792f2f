#include "adapters/views/proposed.h"

#include <algorithm>

#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

checks::Text textOf(const Variant& value) {
    if (value.isNull()) return std::nullopt;
    return toText(value, Regional{});
}

std::string orEmptyOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

checks::FieldRow fieldOf(const View& view, const Row& row) {
    const auto text = [&](std::string_view column) {
        return textOf(row[placeOf(fieldColumns(), column)]);
    };
    checks::FieldRow field;
    field.view = view.number();
    field.key = orEmptyOf(row.front());
    field.caption = text("ACoCaption");
    field.length = text("ACoLen");
    field.required = text("ACoObligatorio");
    field.duplicate = text("ACoDuplicado");
    field.f2 = text("ACoAccionF2");
    field.kind = text("ACoTipo");
    field.source = text("ACoDatosCombo");
    return field;
}

checks::ViewRow rowOf(const View& view) {
    const auto text = [&](std::string_view column) { return textOf(valueOf(view, column)); };
    checks::ViewRow row;
    row.number = view.number();
    row.title = text("ABMTitulo");
    row.name = text("ABMNombreVista");
    row.width = text("ABMAnchoForm");
    row.listing = text("ABMConsulta");
    row.headers = text("ABMColumnasNombre");
    row.widths = text("ABMColumnasAncho");
    row.alignments = text("ABMColumnasAlineacion");
    row.duplicates = text("ABMSQLValidarDuplicados");
    row.help = text("ABMIDAyuda");
    row.access = text("ABMValidarAcceso");
    for (const Row& field : view.fields) row.fields.push_back(fieldOf(view, field));
    return row;
}

void replaceRules(checks::Metadata& metadata, const std::string& name,
                  const std::vector<Row>& rules) {
    std::erase_if(metadata.rules, [&](const checks::RuleRow& rule) { return rule.table == name; });
    for (const Row& rule : rules)
        metadata.rules.push_back(
            {name, orEmptyOf(rule[0]), textOf(rule[1]), orEmptyOf(rule[2]), orEmptyOf(rule[3])});
}

void replaceRights(checks::Metadata& metadata, const std::string& option,
                   const std::vector<Row>& rights) {
    std::erase_if(metadata.rights,
                  [&](const checks::RightRow& right) { return right.option == option; });
    for (const Row& right : rights) metadata.rights.push_back({option, orEmptyOf(right[2])});
}

}  // namespace

checks::Metadata proposed(checks::Metadata metadata, const Changes& changes,
                          const StoredViews& stored, const ChangeOptions& options) {
    for (const std::string& name : changes.releasedNames) replaceRules(metadata, name, {});
    for (const std::string& name : changes.releasedSequences) metadata.sequences.erase(name);
    if (options.deleteMissing)
        for (const std::int64_t number : changes.missing) metadata.views.erase(number);
    for (const ViewChanges& change : changes.views) {
        const View& view = change.wanted;
        checks::ViewRow row = rowOf(view);
        if (stored.view(view.number()) != nullptr) row.rows = metadata.views.at(view.number()).rows;
        metadata.views[view.number()] = std::move(row);
        std::erase_if(metadata.fieldsOfNoView,
                      [&](const checks::FieldRow& field) { return field.view == view.number(); });
        if (!view.name().empty()) replaceRules(metadata, view.name(), view.rules);
        if (!view.option().empty()) replaceRights(metadata, view.option(), view.rights);
        if (change.sequence >= 0) metadata.sequences[view.name()] = decimalText(change.sequence);
    }
    return metadata;
}

}  // namespace catalogador::views
