#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/numbers.h"
#include "adapters/schema/tables.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::int64_t lastView = 32767;

struct ViewValue {
    const char* column;
    Text ViewRow::*value;
};

/// What the screen fails on when it is Null.
constexpr ViewValue requiredValues[] = {{"ABMTitulo", &ViewRow::title},
                                        {"ABMNombreVista", &ViewRow::name},
                                        {"ABMAnchoForm", &ViewRow::width},
                                        {"ABMConsulta", &ViewRow::listing},
                                        {"ABMColumnasNombre", &ViewRow::headers},
                                        {"ABMColumnasAncho", &ViewRow::widths},
                                        {"ABMColumnasAlineacion", &ViewRow::alignments}};

constexpr ViewValue limitedTexts[] = {{"ABMTitulo", &ViewRow::title},
                                      {"ABMColumnasNombre", &ViewRow::headers},
                                      {"ABMColumnasAncho", &ViewRow::widths},
                                      {"ABMColumnasAlineacion", &ViewRow::alignments},
                                      {"ABMValidarAcceso", &ViewRow::access}};

struct FieldValue {
    const char* column;
    Text FieldRow::*value;
};
constexpr FieldValue limitedFieldTexts[] = {{"ACoCaption", &FieldRow::caption},
                                            {"ACoAccionF2", &FieldRow::f2}};

/// Characters that the component's own schema gives a column; 0 when it sets no limit.
int roomOf(std::string_view table, std::string_view column) {
    for (const schema::TableDefinition& definition : schema::schemaTables()) {
        if (definition.name != table) continue;
        for (const schema::TableColumn& defined : definition.columns)
            if (defined.name == column) return schema::longestText(defined.type);
    }
    return 0;
}

void checkLength(const Context& context, const Text& text, std::string_view table, Place place) {
    const int room = roomOf(table, place.column);
    const auto length = static_cast<int>(lengthInCharacters(orEmpty(text)));
    if (room > 0 && length > room)
        context.findings.add(kind::textTooLong, std::move(place), decimalText(length),
                             decimalText(room));
}

void checkLengths(const Context& context, const ViewRow& view) {
    for (const auto& [column, value] : limitedTexts)
        checkLength(context, view.*value, "Catalogador", ofView(view, column));
    for (const FieldRow& field : view.fields)
        for (const auto& [column, value] : limitedFieldTexts)
            checkLength(context, field.*value, "CatalogadorControles", ofField(field, column));
}

void checkName(const Context& context, const ViewRow& view) {
    if (!view.name) return;
    if (view.name->empty()) {
        context.findings.add(kind::nameEmpty, ofView(view, "ABMNombreVista"));
        return;
    }
    const int room = roomOf("genNumeradores", "NumNombre");
    const auto length = static_cast<int>(lengthInCharacters(*view.name));
    if (length > room)
        context.findings.add(kind::nameTooLong, ofView(view, "ABMNombreVista"), decimalText(length),
                             decimalText(room));
    for (const auto& [number, other] : context.metadata.views) {
        if (number == view.number || other.name != view.name) continue;
        context.findings.add(kind::nameShared, ofView(view, "ABMNombreVista"), decimalText(number),
                             *view.name);
        return;
    }
}

void checkHelp(const Context& context, const ViewRow& view) {
    if (!view.help) return;
    const auto id = wholeNumber(*view.help);
    const Place place = ofView(view, "ABMIDAyuda");
    if (!id || !fitsSmall(*id)) {
        context.findings.add(kind::notANumber, place, *view.help);
    } else if (*id != 0 && context.options.helpPages && !context.options.helpPages->contains(*id)) {
        context.findings.add(kind::helpWithoutPage, place, *view.help).fix =
            "Update Catalogador Set ABMIDAyuda = Null Where ABMIDFormVista = " +
            decimalText(view.number);
    }
}

}  // namespace

Place ofView(const ViewRow& view, std::string column) {
    return {view.number, "Catalogador", std::move(column), {}};
}

Place ofField(const FieldRow& field, std::string column) {
    return {field.view, "CatalogadorControles", std::move(column), field.key};
}

void checkView(const Context& context, const ViewRow& view) {
    Findings& findings = context.findings;
    if (view.number < 1 || view.number > lastView)
        findings.add(kind::viewNumber, ofView(view, "ABMIDFormVista"), decimalText(view.number));
    if (view.rows > 1)
        findings.add(kind::viewTwice, ofView(view, "ABMIDFormVista"), decimalText(view.rows));
    for (const auto& [column, value] : requiredValues)
        if (!(view.*value)) findings.add(kind::viewValueNull, ofView(view, column));
    if (view.title && trim(*view.title).empty())
        findings.add(kind::titleEmpty, ofView(view, "ABMTitulo"));
    if (view.width && !anyNumber(*view.width))
        findings.add(kind::notANumber, ofView(view, "ABMAnchoForm"), *view.width);
    checkName(context, view);
    checkHelp(context, view);
    checkLengths(context, view);
}

}  // namespace catalogador::checks
