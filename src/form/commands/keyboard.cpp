#include "form/commands/input.h"
#include "form/frmCatalogador.h"
#include "modules/modErrores.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

bool isBlank(const TextBox& box) {
    return trim(box.text()).empty();
}

void exchangeSeparator(const frmCatalogador& form, char32_t& character) {
    const auto single = [](const std::string& text) {
        return text.size() == 1 ? static_cast<char32_t>(text.front()) : U'\0';
    };
    if (character != 0 && character == single(form.thousandsSeparator()))
        character = single(form.decimalSeparator());
}

/// Enter in a numeric box: what is not a number is erased, then the focus moves on.
void numericStep(frmCatalogador& form, TextBox& box, int number, const Regional& regional) {
    if (!isNumeric(Variant(box.text()), regional)) {
        box.setText("");
        form.SiguienteCampo(number - 1);
    }
    form.SiguienteCampo(number);
}

/// Opens the view that a tag names, on the selected entry of a combo. A tag names a view when it
/// begins with a number other than 0.
void runF2(frmCatalogador& form, Host& host, const std::string& tag, ComboBox* combo) {
    trapped(host, "AccionF2", form.mstrAppName, [&] {
        const double view = leadingNumber(tag);
        if (view == 0) return;
        form.AccionF2(toInteger(Variant(view), host.regional), combo,
                      combo == nullptr ? 0 : combo->itemData(combo->listIndex()));
    });
}

/// Has the events of the fields call the form's procedures.
class FieldKeys {
  public:
    FieldKeys(frmCatalogador& form, Host& host) : form_(form), host_(host) {}
    void wireTextField(const TextField& field, int number) const;
    void wireValueField(const ValueField& field, int number) const;
    /// The tag of `f2Holder` has the F2 action of the check box.
    void wireCheck(CheckBox& check, const Control& f2Holder, int number) const;

  private:
    void wireText(TextBox& box) const;
    void wireF2(Control& control, const Control& f2Holder) const;

    frmCatalogador& form_;
    Host& host_;
};

void FieldKeys::wireF2(Control& control, const Control& f2Holder) const {
    control.onKeyDown = [&form = form_, &host = host_, &f2Holder](int& keyCode, int) {
        if (keyCode == key::f2) runF2(form, host, f2Holder.tag, nullptr);
    };
}

void FieldKeys::wireText(TextBox& box) const {
    box.onGotFocus = [&box] { box.select(0, lengthInCharacters(box.text())); };
    wireF2(box, box);
}

void FieldKeys::wireTextField(const TextField& field, int number) const {
    wireText(field.box());
    field.box().onKeyPress = [&form = form_, &field, number](char32_t& character) {
        if (character == key::enter && (!isBlank(field.box()) || !field.required()))
            form.SiguienteCampo(number);
    };
}

void FieldKeys::wireCheck(CheckBox& check, const Control& f2Holder, int number) const {
    check.onKeyPress = [&form = form_, number](char32_t& character) {
        if (character == key::enter) form.SiguienteCampo(number);
    };
    wireF2(check, f2Holder);
}

void FieldKeys::wireValueField(const ValueField& field, int number) const {
    wireText(field.box());
    field.box().onKeyPress = [&form = form_, &host = host_, &field, number](char32_t& character) {
        if (character == key::enter) {
            if (!isBlank(field.box()) || !field.required())
                numericStep(form, field.box(), number, host.regional);
        } else if (&field.box() == &form.txtValor3) {
            exchangeSeparator(form, character);
        }
    };
    wireCheck(field.check(), field.box(), number);
    ComboBox& combo = field.combo();
    combo.onKeyPress = [&form = form_, &field, &combo, number](char32_t& character) {
        if (character == key::enter && (combo.listIndex() != -1 || !field.required()))
            form.SiguienteCampo(number);
    };
    combo.onKeyDown = [&form = form_, &host = host_, &field, &combo](int& keyCode, int) {
        if (keyCode == key::f2 && combo.listIndex() != -1)
            runF2(form, host, field.box().tag, &combo);
    };
}

}  // namespace

void wireFields(frmCatalogador& form, Host& host) {
    const FieldKeys keys(form, host);
    // Fields are numbered from 1 in the order in which Enter goes through them.
    int number = 0;
    for (const TextField* field : form.textFields()) keys.wireTextField(*field, ++number);
    for (const ValueField* field : form.valueFields()) keys.wireValueField(*field, ++number);
    keys.wireCheck(form.chkValorSiNo, form.chkValorSiNo, ++number);
    form.commandBars.filterBox.onKeyPress = [&form](char32_t& character) {
        if (character == key::enter) form.commandBars.execute(action::filterBox);
    };
}

void frmCatalogador::SiguienteCampo(int desde) {
    trap("SiguienteCampo", [&] {
        for (std::size_t next = static_cast<std::size_t>(desde); next < fields().size(); ++next)
            if (Control* stop = fields()[next]->stop()) return setFocus(*stop);
        AccionGrabar();
    });
}

void frmCatalogador::leaveInput() {
    TextBox& box = commandBars.filterBox;
    if (!box.hasFocus()) {
        if (commandBars.find(action::cancel)->enabled && confirmDiscard())
            commandBars.execute(action::cancel);
        return;
    }
    box.setText("");
    mblnFiltroAbierto = false;
    box.setVisible(false);
}

}  // namespace catalogador
