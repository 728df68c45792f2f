#include "form/frmCatalogador.h"

#include <algorithm>

#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr Rect designPlace{0, 0, 6500, 6000};
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
constexpr std::int32_t textRefusedMessage = 121;

}  // namespace

frmCatalogador::frmCatalogador(Host& host)
    : Window(host.surface),
      host_(host),
      textFields_{{{"TextoCorto", lblTexto1, txtTexto1, "CTeTextoCorto", 0},
                   {"TextoLargo", lblTexto2, txtTexto2, "CTeTextoLargo", 1}}},
      valueFields_{{{"Valor1", lblValor1, txtValor1, cmbValor1, chkValor1, "CTeValor1", 2},
                    {"Valor2", lblValor2, txtValor2, cmbValor2, chkValor2, "CTeValor2", 3},
                    {"Valor3", lblValor3, txtValor3, cmbValor3, chkValor3, "CTeValor3", 4}}} {
    add(picBackColor);
    for (TextField& field : textFields_) {
        add(field.label);
        add(field.text);
    }
    for (ValueField& field : valueFields_) {
        add(field.label);
        add(field.text);
        add(field.combo);
        add(field.check);
    }
    add(lblValorSiNo);
    add(chkValorSiNo);
    add(grdGrilla);
    placeDesign();
    wireEvents();
}

void frmCatalogador::placeDesign() {
    setCaption("Mantenimiento Genérico");
    move(designPlace);
    picBackColor.move(designPanel);
    picBackColor.setTabStop(false);
    int top = firstFieldTop;
    const auto placeLabel = [&](Label& label) {
        label.move({labelLeft, top + labelDrop, label.width(), labelHeight});
        label.setVisible(false);
    };
    for (TextField& field : textFields_) {
        placeLabel(field.label);
        field.text.move({fieldLeft, top, textWidth, fieldHeight});
        field.text.setVisible(false);
        top += designStep;
    }
    for (ValueField& field : valueFields_) {
        placeLabel(field.label);
        field.text.move({fieldLeft, top, valueWidth, fieldHeight});
        field.combo.move({fieldLeft, top, comboWidth, fieldHeight});
        field.check.move({labelLeft, top, comboWidth, fieldHeight});
        for (Control* control :
             {static_cast<Control*>(&field.text), static_cast<Control*>(&field.combo),
              static_cast<Control*>(&field.check)})
            control->setVisible(false);
        top += designStep;
    }
    placeLabel(lblValorSiNo);
    chkValorSiNo.move({labelLeft, top, comboWidth, fieldHeight});
    chkValorSiNo.setVisible(false);
    grdGrilla.move({60, top + designStep, 6000, 3000});
}

void frmCatalogador::wireEvents() {
    onResize = [this] { Form_Resize(); };
    onQueryUnload = [this] { Form_QueryUnload(); };
    onUnload = [this] { Form_Unload(); };
    commandBars.onExecute = [this](int id) { cmdBars_Execute(id); };
    commandBars.onResize = [this] { cmdBars_Resize(); };
    onEscape = [this] { leaveInput(); };
    onRefresh = [this] { readListAgain(); };
    wireGrid();
    wireFields();
}

/// The native window of a form, which goes away even when an error escapes from the form.
class frmCatalogador::OpenForm {
  public:
    OpenForm(frmCatalogador& form, Host& host) : form_(form), host_(host) {
        host_.surface.open(form_);
        form_.setOpen(true);
    }
    ~OpenForm() {
        form_.setOpen(false);
        host_.surface.close(form_);
        if (host_.listener != nullptr)
            host_.listener->formClosed(form_.mlngIdVista, form_.mlngIdUltimo);
    }
    OpenForm(const OpenForm&) = delete;
    OpenForm& operator=(const OpenForm&) = delete;

  private:
    frmCatalogador& form_;
    Host& host_;
};

void frmCatalogador::showModal() {
    if (host_.listener != nullptr) host_.listener->formOpening(mlngIdVista);
    const OpenForm opened(*this, host_);
    Form_Load();
    if (focus() == nullptr) moveFocus(true);
    surface().showModal(*this);
    requestClose();
}

std::string frmCatalogador::memoryName() const {
    return decimalText(mlngIdVista);
}

int frmCatalogador::kindOf(const std::string& tag) {
    // No kind is that large; what the metadata says may be.
    constexpr double largest = 1.0e6;
    return static_cast<int>(std::clamp(leadingNumber(tag), -largest, largest));
}

std::string frmCatalogador::textOrEmpty(const char* column) const {
    return toTextOrEmpty(mrdoRegistro->value(column), host_.regional);
}

std::int32_t frmCatalogador::codeOfRow(int row) const {
    return toLong(Variant(grdGrilla.code(row)), host_.regional);
}

bool frmCatalogador::rowHasCode(int row, std::int32_t code) const {
    return equalValues(Variant(grdGrilla.code(row)), Variant(code), host_.regional).value_or(false);
}

void frmCatalogador::openRecords(Purpose purpose) {
    if (mrdoCBase == nullptr)
        throw RuntimeError(error_number::objectNotSet, "Object variable not set");
    try {
        mrdoRegistro = purpose == Purpose::writing ? mrdoCBase->OpenToWrite(mstrSQL)
                                                   : mrdoCBase->OpenResultset(mstrSQL);
    } catch (const DataRefused& refused) {
        throw refusalOf(refused);
    }
}

RuntimeError frmCatalogador::refusalOf(const DataRefused& refused) const {
    std::string place = caption();
    const auto takeFrom = [&](const Label& label, const TextBox& box) {
        if (trim(box.text()) != refused.data()) return;
        place = label.caption();
        LimpiarCaption(place);
    };
    for (const TextField& field : textFields_) takeFrom(field.label, field.text);
    for (const ValueField& field : valueFields_) takeFrom(field.label, field.text);
    std::string shown = refused.data();
    // A message box ends at some of these and breaks its line at others.
    std::replace_if(
        shown.begin(), shown.end(), [](unsigned char c) { return c < ' '; }, ' ');
    const std::string text =
        replaceText(ObtenerMensaje(textRefusedMessage), "[p2]", place, Compare::binary);
    return {refused.number(), replaceText(text, "[p1]", shown, Compare::binary)};
}

}  // namespace catalogador
