#include "form/fields/yes_no_field.h"

#include "runtime/convert.h"

namespace catalogador {

bool YesNoField::used() const {
    return leadingNumber(check_.tag) >= 1;
}

int YesNoField::configure(const FieldSetup& setup) {
    check_.setCaption(setup.row.caption());
    startsTicked_ = setup.row.startsTicked();
    check_.tag = "1";
    setup.row.readRules(rules());
    setup.row.readF2Action(check_.tag);
    return 0;
}

void YesNoField::show(const FieldFrame& frame) {
    if (used()) showCheck(check_, check_.caption(), frame);
    check_.setVisible(used());
}

int YesNoField::stack(int top) {
    if (leadingNumber(check_.tag) != 1) return top;
    check_.setTop(top + field_gap::label);
    return bottomOf(check_);
}

void YesNoField::enable(bool editing, Color /*color*/) {
    if (!used()) return;
    label().setEnabled(editing);
    check_.setEnabled(editing);
}

void YesNoField::load(const rdoResultset& row, const Regional& regional) {
    if (!used()) return;
    const Variant value = row.value(column());
    check_.setValue(!value.isNull() && toBoolean(value, regional) ? 1 : 0);
}

void YesNoField::store(rdoResultset& row, const Regional& /*regional*/) const {
    if (check_.visible()) row.setValue(column(), check_.value());
}

TokenValue YesNoField::tokenValue(const Regional& /*regional*/) const {
    return {decimalText(check_.value())};
}

std::string YesNoField::contents() const {
    return decimalText(check_.value());
}

}  // namespace catalogador
