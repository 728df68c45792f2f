#include "form/fields/value_field.h"

namespace catalogador {

ValueField::ValueField(std::string_view key, const char* column, Label& label, TextBox& box,
                       ComboBox& combo, CheckBox& check, std::span<std::uint8_t, 2> rules)
    : Field(key, column, label, rules),
      box_(box),
      combo_(combo),
      check_(check),
      unusedFace_(check),
      numberFace_(box),
      comboFace_(combo, box),
      checkLeftFace_(check, 0),
      checkRightFace_(check, 1) {}

ValueFace& ValueField::faceOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::text:
            return numberFace_;
        case FieldKind::combo:
            return comboFace_;
        case FieldKind::checkLeft:
            return checkLeftFace_;
        case FieldKind::checkRight:
            return checkRightFace_;
        case FieldKind::unused:
            break;
    }
    return unusedFace_;
}

void ValueField::setKind(FieldKind kind) {
    kind_ = kind;
    face_ = &faceOf(kind);
    label().tag = decimalText(static_cast<int>(kind));
}

int ValueField::configure(const FieldSetup& setup) {
    label().setCaption(setup.row.caption());
    if (const auto kind = setup.row.kind()) {
        constexpr auto first = static_cast<std::int32_t>(FieldKind::text);
        constexpr auto last = static_cast<std::int32_t>(FieldKind::checkRight);
        if (*kind >= first && *kind <= last) {
            setKind(static_cast<FieldKind>(*kind));
            face_->configure(setup);
        }
        if (!setup.offered) takeOut();
        setup.row.readRules(rules());
    }
    setup.row.readF2Action(box_.tag);
    return face_->labelCounts() ? label().width() : 0;
}

void ValueField::show(const FieldFrame& frame) {
    label().setVisible(face_->labelShown());
    for (Control* control : {static_cast<Control*>(&label()), static_cast<Control*>(&box_),
                             static_cast<Control*>(&combo_)})
        control->setRequired(required());
    for (Control* control : {static_cast<Control*>(&box_), static_cast<Control*>(&combo_),
                             static_cast<Control*>(&check_)})
        control->setVisible(control == face_->control());
    face_->show(label().caption(), frame);
}

int ValueField::stack(int top) {
    if (used()) label().setTop(top + field_gap::label);
    return face_->stack(top);
}

void ValueField::enable(bool editing, Color color) {
    if (used()) label().setEnabled(editing);
    face_->enable(editing, color);
}

void ValueField::clear() {
    box_.setText("");
    check_.setValue(0);
    combo_.setListIndex(-1);
}

void ValueField::load(const rdoResultset& row, const Regional& regional) {
    const Variant value = row.value(column());
    if (!value.isNull()) face_->load(value, regional);
}

void ValueField::store(rdoResultset& row, const Regional& regional) const {
    if (used()) row.setValue(column(), face_->stored(regional));
}

bool ValueField::holdsText(std::string_view text) const {
    return trim(box_.text()) == text;
}

std::string ValueField::contents() const {
    std::string all;
    const int index = combo_.listIndex();
    if (index >= 0) all += combo_.items()[static_cast<std::size_t>(index)].text;
    return all + '\n' + box_.text() + '\n' + decimalText(check_.value()) + '\n';
}

}  // namespace catalogador
