#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int fieldTexto1 = 1;
constexpr int fieldTexto2 = 2;
constexpr int fieldValorSiNo = 6;

bool isBlank(const TextBox& box) {
    return trim(box.text()).empty();
}

}  // namespace

void frmCatalogador::wireFields() {
    wireTextField(textFields_[0], fieldTexto1);
    wireTextField(textFields_[1], fieldTexto2);
    for (ValueField& field : valueFields_) wireValueField(field);
    chkValorSiNo.onKeyPress = [this](char32_t& character) {
        if (character == key::enter) SiguienteCampo(fieldValorSiNo);
    };
    chkValorSiNo.onKeyDown = [this](int& keyCode, int) {
        if (keyCode == key::f2) runF2(chkValorSiNo.tag, nullptr);
    };
    commandBars.filterBox.onKeyPress = [this](char32_t& character) {
        if (character == key::enter) commandBars.execute(action::filterBox);
    };
}

void frmCatalogador::wireText(TextBox& box) {
    box.onGotFocus = [&box] { box.select(0, lengthInCharacters(box.text())); };
    box.onKeyDown = [this, &box](int& keyCode, int) {
        if (keyCode == key::f2) runF2(box.tag, nullptr);
    };
}

void frmCatalogador::wireTextField(TextField& field, int number) {
    wireText(field.text);
    field.text.onKeyPress = [this, &field, number](char32_t& character) {
        if (character == key::enter && (!isBlank(field.text) || !required(field.index)))
            SiguienteCampo(number);
    };
}

void frmCatalogador::wireValueField(ValueField& field) {
    wireText(field.text);
    // Field numbers of the Enter chain run one ahead of the places in the rule flags.
    const int number = static_cast<int>(field.index) + 1;
    field.text.onKeyPress = [this, &field, number](char32_t& character) {
        if (character == key::enter) {
            if (!isBlank(field.text) || !required(field.index)) numericStep(field, number);
        } else if (&field.text == &txtValor3) {
            exchangeSeparator(character);
        }
    };
    field.check.onKeyPress = [this, number](char32_t& character) {
        if (character == key::enter) SiguienteCampo(number);
    };
    field.check.onKeyDown = [this, &field](int& keyCode, int) {
        if (keyCode == key::f2) runF2(field.text.tag, nullptr);
    };
    field.combo.onKeyPress = [this, &field, number](char32_t& character) {
        if (character == key::enter && (field.combo.listIndex() != -1 || !required(field.index)))
            SiguienteCampo(number);
    };
    field.combo.onKeyDown = [this, &field](int& keyCode, int) {
        if (keyCode == key::f2 && field.combo.listIndex() != -1)
            runF2(field.text.tag, &field.combo);
    };
}

void frmCatalogador::exchangeSeparator(char32_t& character) const {
    const auto single = [](const std::string& text) {
        return text.size() == 1 ? static_cast<char32_t>(text.front()) : U'\0';
    };
    if (character != 0 && character == single(mstrSeparadorMiles))
        character = single(mstrSeparadorDecimal);
}

void frmCatalogador::numericStep(ValueField& field, int number) {
    if (!isNumeric(Variant(field.text.text()), host_.regional)) {
        field.text.setText("");
        SiguienteCampo(number - 1);
    }
    SiguienteCampo(number);
}

void frmCatalogador::SiguienteCampo(int desde) {
    trap("SiguienteCampo", [&] {
        if (desde <= fieldTexto1 && kindOf(lblTexto2.tag) > 0) return setFocus(txtTexto2);
        for (ValueField& field : valueFields_) {
            if (static_cast<int>(field.index) < desde || field.label.tag == "0") continue;
            if (field.label.tag == "1") return setFocus(field.text);
            if (field.label.tag == "2") return setFocus(field.combo);
            if (field.label.tag == "3" || field.label.tag == "4") return setFocus(field.check);
            return;
        }
        if (desde < fieldValorSiNo && kindOf(chkValorSiNo.tag) > 0) return setFocus(chkValorSiNo);
        AccionGrabar();
    });
}

void frmCatalogador::runF2(const std::string& action, ComboBox* combo) {
    trap("AccionF2", [&] {
        const double view = leadingNumber(action);
        if (view == 0) return;
        AccionF2(toInteger(Variant(view), host_.regional), combo,
                 combo == nullptr ? 0 : combo->itemData(combo->listIndex()));
    });
}

}  // namespace catalogador
