#include "form/fields/text_field.h"

#include "runtime/convert.h"

namespace catalogador {

namespace {
/// Text boxes for fewer characters than this are made as wide as their text can get.
constexpr int shortTextLimit = 25;
constexpr int shortTextMargin = 100;
}  // namespace

void TextField::takeOut() {
    used_ = false;
    label().tag = "0";
}

int TextField::configure(const FieldSetup& setup) {
    label().setCaption(setup.row.caption());
    const int maxLength = setup.row.maxLength();
    box_.setMaxLength(maxLength);
    if (maxLength < shortTextLimit)
        box_.setWidth(box_.maxLength() * setup.panel.textWidth("Q") + shortTextMargin);
    used_ = true;
    label().tag = tagInUse();
    setup.row.readRules(rules());
    setup.row.readF2Action(box_.tag);
    return label().width();
}

void TextField::show(const FieldFrame& frame) {
    for (Control* control : {static_cast<Control*>(&label()), static_cast<Control*>(&box_)}) {
        control->setVisible(used_);
        control->setRequired(required());
    }
    box_.setLeft(frame.column);
}

int TextField::stack(int top) {
    if (!used_) return top;
    label().setTop(top + field_gap::label);
    box_.setTop(top + field_gap::box);
    return bottomOf(box_);
}

int ShortTextField::stack(int top) {
    // The first field keeps the place that it was designed with.
    return used() ? top + box().height() : top;
}

void TextField::enable(bool editing, Color color) {
    if (!used_) return;
    label().setEnabled(editing);
    box_.setEnabled(editing);
    box_.setBackColor(color);
}

void TextField::load(const rdoResultset& row, const Regional& regional) {
    if (!used_ || row.value(column()).isNull()) return;
    const std::string text = toText(row.value(columnToRead()), regional);
    box_.setText(std::string(trim(text)));
}

void ShortTextField::store(rdoResultset& row, const Regional& /*regional*/) const {
    row.setValue(column(), box().visible() ? Variant(trim(box().text())) : row.value("CTeCodigo"));
}

void LongTextField::store(rdoResultset& row, const Regional& /*regional*/) const {
    if (!box().visible()) return;
    row.setValue(column(), box().text().empty() ? Variant(Null{}) : Variant(trim(box().text())));
}

std::optional<UniqueValue> TextField::uniqueValue() const {
    return UniqueValue{trimmedText(box_), false};
}

TokenValue TextField::tokenValue(const Regional& /*regional*/) const {
    return {trimmedText(box_)};
}

bool TextField::holdsText(std::string_view text) const {
    return trim(box_.text()) == text;
}

}  // namespace catalogador
