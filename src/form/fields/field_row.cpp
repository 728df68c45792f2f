#include "form/fields/field_row.h"

#include "runtime/convert.h"

namespace catalogador {

namespace {
constexpr int defaultMaxLength = 60;
}

std::string FieldRow::text(const char* column) const {
    return toTextOrEmpty(row_.value(column), regional_);
}

int FieldRow::maxLength() const {
    const Variant length = row_.value("ACoLen");
    return length.isNull() ? defaultMaxLength : toLong(length, regional_);
}

std::optional<std::int32_t> FieldRow::kind() const {
    const Variant kind = row_.value("ACoTipo");
    if (kind.isNull()) return std::nullopt;
    return toLong(kind, regional_);
}

bool FieldRow::startsTicked() const {
    return equalValues(row_.value("ACoDatosCombo"), Variant(1), regional_).value_or(false);
}

void FieldRow::readRules(std::span<std::uint8_t, 2> rules) const {
    const Variant required = row_.value("ACoObligatorio");
    if (!required.isNull()) rules[0] = toByte(required, regional_);
    const Variant unique = row_.value("ACoDuplicado");
    if (!unique.isNull()) rules[1] = toByte(unique, regional_);
}

void FieldRow::readF2Action(std::string& tag) const {
    const Variant action = row_.value("ACoAccionF2");
    if (!action.isNull()) tag = toText(action, regional_);
}

}  // namespace catalogador
