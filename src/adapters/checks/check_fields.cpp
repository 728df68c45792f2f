#include <algorithm>
#include <map>

#include "adapters/checks/context.h"
#include "adapters/checks/field_rules.h"
#include "adapters/checks/numbers.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::int64_t defaultLength = 60;
constexpr std::int64_t largestFlag = 255;
constexpr std::string_view textKeys[] = {"TextoCorto", "TextoLargo"};

/// The field that a key stands for, whatever its capitals and blanks; empty when there is none.
std::string meantKey(const std::string& key) {
    for (const std::string_view known : fieldKeys)
        if (equalText(trim(key), known)) return std::string(known);
    return {};
}

std::string mended(const FieldRow& field, const std::string& column, const std::string& value) {
    return "Update CatalogadorControles Set " + column + " = " + value +
           " Where ACoIDFormVista = " + decimalText(field.view) + " And ACoKeyControl = '" +
           replaceText(field.key, "'", "''", Compare::binary) + "'";
}

void checkKeys(const Context& context, const ViewRow& view) {
    std::map<std::string, int> rows;
    for (const FieldRow& field : view.fields) {
        if (isField(field.key)) {
            ++rows[field.key];
            continue;
        }
        const std::string meant = meantKey(field.key);
        Finding& finding =
            context.findings.add(kind::fieldKey, ofField(field, "ACoKeyControl"), field.key,
                                 meant.empty() ? std::string() : "; it is spelled " + meant);
        if (!meant.empty()) finding.fix = mended(field, "ACoKeyControl", "'" + meant + "'");
    }
    for (const auto& [key, count] : rows)
        if (count > 1)
            context.findings.add(kind::fieldTwice, ofField(*view.field(key), "ACoKeyControl"),
                                 decimalText(count));
}

void checkLength(const Context& context, const FieldRow& field) {
    const auto text = std::find(std::begin(textKeys), std::end(textKeys), field.key);
    const bool isText = text != std::end(textKeys);
    if (!isText && kindOf(field) != FieldKind::number) return;
    const Place place = ofField(field, "ACoLen");
    const auto length = field.length ? wholeNumber(*field.length) : defaultLength;
    if (!length || !fitsLong(*length)) {
        context.findings.add(kind::notANumber, place, *field.length);
        return;
    }
    if (*length <= 0) {
        context.findings.add(kind::lengthNotPositive, place, *field.length);
        return;
    }
    if (!isText) return;
    const ColumnFacts* column = context.metadata.schema.column("genCodigoTexto", "CTe" + field.key);
    if (column != nullptr && column->length > 0 && *length > column->length) {
        context.findings
            .add(kind::lengthBeyondColumn, place, decimalText(*length), decimalText(column->length))
            .fix = mended(field, "ACoLen", decimalText(column->length));
        return;
    }
    const auto records = context.metadata.records.find(field.view);
    if (records == context.metadata.records.end()) return;
    const std::int64_t longest =
        records->second.longest.at(static_cast<std::size_t>(text - std::begin(textKeys)));
    if (longest > *length)
        context.findings.add(kind::textsCut, place, decimalText(longest), decimalText(*length));
}

/// Gives whether the flag is set.
bool checkFlag(const Context& context, const FieldRow& field, const char* column,
               const Text& value) {
    if (!value) return false;
    const auto number = wholeNumber(*value);
    const Place place = ofField(field, column);
    if (!number || *number < 0 || *number > largestFlag)
        context.findings.add(kind::notANumber, place, *value);
    else if (*number > 1)
        context.findings.add(kind::flagValue, place, *value);
    return number == 1;
}

void checkFlags(const Context& context, const FieldRow& field) {
    const bool required = checkFlag(context, field, "ACoObligatorio", field.required);
    const bool unique = checkFlag(context, field, "ACoDuplicado", field.duplicate);
    const FieldKind kind = kindOf(field);
    if (kind == FieldKind::hidden && required)
        context.findings.add(kind::requiredUnseen, ofField(field, "ACoObligatorio"));
    if (kind != FieldKind::check) return;
    if (required) context.findings.add(kind::flagOnCheckBox, ofField(field, "ACoObligatorio"));
    if (unique) context.findings.add(kind::flagOnCheckBox, ofField(field, "ACoDuplicado"));
}

void checkKind(const Context& context, const FieldRow& field) {
    if (!isValueField(field.key)) return;
    const Place place = ofField(field, "ACoTipo");
    if (!field.kind) {
        // That a required field is never seen says this too.
        if (wholeNumber(orEmpty(field.required)) != 1)
            context.findings.add(kind::fieldWithoutKind, place);
        return;
    }
    const auto number = wholeNumber(*field.kind);
    if (!number || !fitsLong(*number))
        context.findings.add(kind::notANumber, place, *field.kind);
    else if (kindOf(field) == FieldKind::hidden)
        context.findings.add(kind::fieldKind, place, *field.kind);
}

void checkF2(const Context& context, const FieldRow& field) {
    if (!field.f2) return;
    const Place place = ofField(field, "ACoAccionF2");
    const bool yesNo = field.key == "ValorSiNo";
    const auto number = f2Target(*field.f2);
    if (yesNo && number != 1) context.findings.add(kind::f2OnYesNo, place, *field.f2);
    if (!number || !fitsSmall(*number))
        context.findings.add(kind::notANumber, place, *field.f2);
    else if (*number == 0) {
        if (!yesNo && !wholeNumber(*field.f2))
            context.findings.add(kind::f2NoNumber, place, *field.f2);
    } else if (!context.metadata.views.contains(*number))
        context.findings.add(kind::f2ViewMissing, place, decimalText(*number)).fix =
            mended(field, "ACoAccionF2", "Null");
}

void checkData(const Context& context, const FieldRow& field) {
    const std::string& source = orEmpty(field.source);
    if (trim(source).empty()) return;
    const Place place = ofField(field, "ACoDatosCombo");
    const FieldKind kind = kindOf(field);
    if (field.key == "ValorSiNo") {
        const auto number = wholeNumber(source);
        if (number != 0 && number != 1) context.findings.add(kind::yesNoStart, place, source);
    } else if (kind != FieldKind::combo && kind != FieldKind::hidden) {
        context.findings.add(kind::sourceUnused, place);
    }
}

void checkCaptions(const Context& context, const ViewRow& view) {
    std::map<std::string, std::string> taken;
    for (const FieldRow& field : view.fields) {
        if (!isField(field.key) || kindOf(field) == FieldKind::hidden) continue;
        const std::string& caption = orEmpty(field.caption);
        const Place place = ofField(field, "ACoCaption");
        const std::string mnemonic = mnemonicOf(caption);
        if (trim(caption).empty()) {
            context.findings.add(kind::captionEmpty, place);
        } else if (mnemonic.empty()) {
            context.findings.add(kind::mnemonicMissing, place, caption);
        } else {
            const auto [first, free] = taken.try_emplace(mnemonic, field.key);
            if (!free && first->second != field.key)
                context.findings.add(kind::mnemonicTwice, place, mnemonic, first->second);
        }
    }
}

}  // namespace

void checkFields(const Context& context, const ViewRow& view) {
    if (context.metadata.schema.table("CatalogadorControles") == nullptr) return;
    if (view.fields.empty())
        context.findings.add(kind::noFields, {view.number, "CatalogadorControles", {}, {}});
    checkKeys(context, view);
    checkCaptions(context, view);
    for (const FieldRow& field : view.fields) {
        if (!isField(field.key)) continue;
        checkLength(context, field);
        checkFlags(context, field);
        checkKind(context, field);
        checkF2(context, field);
        checkData(context, field);
        if (field.key == "Valor1" && view.perCompany() && kindOf(field) != FieldKind::hidden)
            context.findings.add(kind::companyValue, ofField(field, "ACoKeyControl"));
    }
}

void checkFieldsOfNoView(const Context& context) {
    for (const FieldRow& field : context.metadata.fieldsOfNoView)
        context.findings.add(kind::fieldsOfNoView, ofField(field, "ACoIDFormVista"));
}

}  // namespace catalogador::checks
