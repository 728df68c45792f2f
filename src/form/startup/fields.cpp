#include <algorithm>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr Color panelColor{0x00DECFCE};
constexpr int defaultMaxLength = 60;
/// Text boxes for less than this many characters are made as wide as their text can get.
constexpr int shortTextLimit = 25;
constexpr int shortTextMargin = 100;
constexpr int gapAfterLabels = 280;

constexpr int kindText = 1;
constexpr int kindCombo = 2;
constexpr int kindCheckLeft = 3;
constexpr int kindCheckRight = 4;

}  // namespace

void frmCatalogador::InicializarControles() {
    trap("InicializarControles", [&] {
        for (TextField& field : textFields_) field.label.tag = "0";
        for (ValueField& field : valueFields_) field.label.tag = "0";
        chkValorSiNo.tag = "0";
    });
}

void frmCatalogador::MostrarControles() {
    trap("MostrarControles", [&] {
        InicializarControles();
        const PointerDuring hourglass(surface());
        int widest = 0;
        mstrSQL =
            "Select * from CatalogadorControles Where ACoIDFormVista = " + decimalText(mlngIdVista);
        openRecords();
        // The combos of a field open resultsets of their own; this one stays the form's.
        for (; !mrdoRegistro->atEnd(); mrdoRegistro->MoveNext()) configureField(widest);
        mrdoRegistro->Close();
        const int column = widest + gapAfterLabels;
        for (TextField& field : textFields_) showTextField(field, column);
        for (ValueField& field : valueFields_) showValueField(field, column);
        const bool yesNo = kindOf(chkValorSiNo.tag) > 0;
        if (yesNo) placeCheck(chkValorSiNo, chkValorSiNo.caption());
        chkValorSiNo.setVisible(yesNo);
        if (leadingNumber(mstrModo) == 0) CargarGrilla();
    });
}

void frmCatalogador::configureField(int& widest) {
    const std::string key = textOrEmpty("ACoKeyControl");
    for (TextField& field : textFields_)
        if (key == field.key) return configureTextField(field, widest);
    for (ValueField& field : valueFields_)
        if (key == field.key) return configureValueField(field, widest);
    if (key == "ValorSiNo") configureYesNo();
}

int frmCatalogador::maxLengthOfField() const {
    const Variant length = mrdoRegistro->value("ACoLen");
    return length.isNull() ? defaultMaxLength : toLong(length, host_.regional);
}

void frmCatalogador::readFlags(std::size_t index) {
    const Variant required = mrdoRegistro->value("ACoObligatorio");
    if (!required.isNull()) mbytReglasCampo[2 * index] = toByte(required, host_.regional);
    const Variant unique = mrdoRegistro->value("ACoDuplicado");
    if (!unique.isNull()) mbytReglasCampo[2 * index + 1] = toByte(unique, host_.regional);
}

void frmCatalogador::readF2Action(std::string& tag) {
    const Variant action = mrdoRegistro->value("ACoAccionF2");
    if (!action.isNull()) tag = toText(action, host_.regional);
}

void frmCatalogador::configureTextField(TextField& field, int& widest) {
    field.label.setCaption(textOrEmpty("ACoCaption"));
    widest = std::max(widest, field.label.width());
    const int maxLength = maxLengthOfField();
    field.text.setMaxLength(maxLength);
    if (maxLength < shortTextLimit)
        field.text.setWidth(field.text.maxLength() * picBackColor.textWidth("Q") + shortTextMargin);
    field.label.tag = field.index == 0 ? "1" : "2";
    readFlags(field.index);
    readF2Action(field.text.tag);
}

void frmCatalogador::configureValueField(ValueField& field, int& widest) {
    field.label.setCaption(textOrEmpty("ACoCaption"));
    if (!mrdoRegistro->value("ACoTipo").isNull()) {
        configureKind(field);
        const std::string application = upperCase(mstrAppKey);
        const char* neededKey = field.index == 4 ? "VEM01" : "VEM04";
        if (mlngIdVista == viewClassifications && application != neededKey) field.label.tag = "0";
        readFlags(field.index);
    }
    if (field.label.tag != "3") widest = std::max(widest, field.label.width());
    readF2Action(field.text.tag);
}

void frmCatalogador::configureKind(ValueField& field) {
    const std::int32_t kind = toLong(mrdoRegistro->value("ACoTipo"), host_.regional);
    if (kind < kindText || kind > kindCheckRight) return;
    field.label.tag = decimalText(kind);
    if (kind == kindText) field.text.setMaxLength(maxLengthOfField());
    if (kind == kindCombo) {
        field.combo.tag = textOrEmpty("ACoDatosCombo");
        fillCombo(field.combo, field.combo.tag);
    }
}

void frmCatalogador::configureYesNo() {
    constexpr std::size_t index = 5;
    chkValorSiNo.setCaption(textOrEmpty("ACoCaption"));
    mblnSiNoDatosCombo =
        equalValues(mrdoRegistro->value("ACoDatosCombo"), Variant(1), host_.regional)
            .value_or(false);
    chkValorSiNo.tag = "1";
    readFlags(index);
    readF2Action(chkValorSiNo.tag);
}

void frmCatalogador::showTextField(TextField& field, int column) {
    const bool used = kindOf(field.label.tag) != 0;
    field.label.setVisible(used);
    field.text.setVisible(used);
    field.label.setRequired(required(field.index));
    field.text.setRequired(required(field.index));
    field.text.setLeft(column);
}

void frmCatalogador::showValueField(ValueField& field, int column) {
    const int kind = kindOf(field.label.tag);
    field.label.setVisible(kind == kindText || kind == kindCombo);
    for (Control* control :
         {static_cast<Control*>(&field.label), static_cast<Control*>(&field.text),
          static_cast<Control*>(&field.combo)})
        control->setRequired(required(field.index));
    field.text.setVisible(kind == kindText);
    if (kind == kindText) field.text.setLeft(column);
    field.combo.setVisible(kind == kindCombo);
    if (kind == kindCombo) {
        field.combo.setLeft(column);
        // The layout aligns a combo with the text box of its field.
        field.text.setLeft(column);
    }
    field.check.setVisible(kind > kindCombo);
    if (kind == kindCheckLeft || kind == kindCheckRight) {
        field.check.setAlignment(kind == kindCheckLeft ? 0 : 1);
        placeCheck(field.check, field.label.caption());
    }
}

void frmCatalogador::placeCheck(CheckBox& check, const std::string& caption) {
    check.setCaption(caption);
    const int left = lblTexto1.left();
    check.move({left, check.top(), picBackColor.width() - 2 * left, check.height()});
    check.setBackColor(panelColor);
}

}  // namespace catalogador
