#include "form/fields/field.h"

#include "runtime/error.h"
#include "runtime/typed_number.h"

namespace catalogador {

void showCheck(CheckBox& check, const std::string& caption, const FieldFrame& frame) {
    check.setCaption(caption);
    check.move({frame.checkLeft, check.top(), frame.checkWidth, check.height()});
    check.setBackColor(panelColor);
}

std::string numberForDatabase(const std::string& typed, const Regional& regional) {
    const auto number = typedNumber(typed, regional);
    if (!number) throw RuntimeError(error_number::typeMismatch, "Type mismatch");
    return number->text;
}

std::string trimmedText(const TextBox& box) {
    return std::string(trim(box.text()));
}

}  // namespace catalogador
