#include "form/fields/value_face.h"

#include "runtime/convert.h"
#include "runtime/typed_number.h"

namespace catalogador {

namespace {
/// A check box takes this much room whatever its height, in twips.
constexpr int checkStep = 315;
}  // namespace

void NumberFace::configure(const FieldSetup& setup) {
    box_.setMaxLength(setup.row.maxLength());
}

void NumberFace::show(const std::string& /*caption*/, const FieldFrame& frame) {
    box_.setLeft(frame.column);
}

int NumberFace::stack(int top) {
    box_.setTop(top + field_gap::box);
    return bottomOf(box_);
}

void NumberFace::enable(bool editing, Color color) {
    box_.setEnabled(editing);
    box_.setBackColor(color);
}

void NumberFace::load(const Variant& value, const Regional& regional) {
    box_.setText(toText(value, regional));
}

Variant NumberFace::stored(const Regional& regional) const {
    if (!box_.visible() || box_.text().empty()) return Null{};
    return numberForDatabase(box_.text(), regional);
}

bool NumberFace::noNumber(const Regional& regional) const {
    const std::string text = trimmedText(box_);
    return !text.empty() && !isNumeric(Variant(text), regional);
}

std::optional<UniqueValue> NumberFace::uniqueValue() const {
    return UniqueValue{trimmedText(box_), true};
}

TokenValue NumberFace::tokenValue(const Regional& regional) const {
    const auto number = typedNumber(box_.text(), regional);
    return {number ? number->text : "0"};
}

void ComboFace::configure(const FieldSetup& setup) {
    combo_.tag = setup.row.comboSource();
    setup.fillCombo(combo_, combo_.tag);
}

void ComboFace::show(const std::string& /*caption*/, const FieldFrame& frame) {
    combo_.setLeft(frame.column);
    box_.setLeft(frame.column);
}

int ComboFace::stack(int top) {
    combo_.setTop(top + field_gap::box);
    combo_.setLeft(box_.left());
    return bottomOf(combo_);
}

void ComboFace::enable(bool editing, Color color) {
    combo_.setEnabled(editing);
    combo_.setBackColor(color);
}

void ComboFace::load(const Variant& value, const Regional& regional) {
    combo_.setListIndex(combo_.findItemData(toLong(value, regional)));
}

Variant ComboFace::stored(const Regional& /*regional*/) const {
    if (empty() || !combo_.visible()) return Null{};
    return combo_.itemData(combo_.listIndex());
}

std::optional<UniqueValue> ComboFace::uniqueValue() const {
    return UniqueValue{empty() ? "" : decimalText(combo_.itemData(combo_.listIndex())), true};
}

TokenValue ComboFace::tokenValue(const Regional& /*regional*/) const {
    if (empty()) return {"0"};
    return {decimalText(combo_.itemData(combo_.listIndex())), Compare::binary};
}

TokenValue UnusedFace::tokenValue(const Regional& /*regional*/) const {
    return {decimalText(check_.value())};
}

void CheckFace::show(const std::string& caption, const FieldFrame& frame) {
    check().setAlignment(alignment_);
    showCheck(check(), caption, frame);
}

int CheckFace::stack(int top) {
    check().setTop(top + field_gap::label);
    return check().top() + checkStep;
}

void CheckFace::enable(bool editing, Color /*color*/) {
    check().setEnabled(editing);
}

void CheckFace::load(const Variant& value, const Regional& regional) {
    check().setValue(toInteger(value, regional));
}

Variant CheckFace::stored(const Regional& /*regional*/) const {
    if (!check().visible()) return Null{};
    return check().value();
}

}  // namespace catalogador
