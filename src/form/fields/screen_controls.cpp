#include "form/fields/screen_controls.h"

namespace catalogador {

namespace {

constexpr Rect designPanel{0, 0, 6400, 5000};
constexpr int labelLeft = 120;
constexpr int labelHeight = 255;
constexpr int fieldLeft = 1200;
constexpr int fieldHeight = 315;
constexpr int firstFieldTop = 95;
constexpr int designStep = 390;
/// A label stands lower than its field so that both texts are on one line.
constexpr int labelDrop = 25;
constexpr int textWidth = 4000;
constexpr int valueWidth = 1800;
constexpr int comboWidth = 4000;

void place(Control& control, const Rect& design) {
    control.move(design);
    control.setVisible(false);
}

}  // namespace

ScreenControls::ScreenControls() {
    placeDesign();
}

std::string ScreenControls::contentsOfFields() const {
    std::string all;
    for (const Field* field : fields_) all += field->contents();
    return all;
}

void ScreenControls::placeDesign() {
    picBackColor.move(designPanel);
    picBackColor.setTabStop(false);
    int top = firstFieldTop;
    const auto placeLabel = [&](Label& label) {
        place(label, {labelLeft, top + labelDrop, label.width(), labelHeight});
    };
    for (const TextField* field : textFields_) {
        placeLabel(field->label());
        place(field->box(), {fieldLeft, top, textWidth, fieldHeight});
        top += designStep;
    }
    for (const ValueField* field : valueFields_) {
        placeLabel(field->label());
        place(field->box(), {fieldLeft, top, valueWidth, fieldHeight});
        place(field->combo(), {fieldLeft, top, comboWidth, fieldHeight});
        place(field->check(), {labelLeft, top, comboWidth, fieldHeight});
        top += designStep;
    }
    placeLabel(lblValorSiNo);
    place(chkValorSiNo, {labelLeft, top, comboWidth, fieldHeight});
    grdGrilla.move({60, top + designStep, 6000, 3000});
}

}  // namespace catalogador
