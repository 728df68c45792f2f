#include "form/frmCatalogador.h"

#include <algorithm>

#include "form/commands/input.h"
#include "modules/messages.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr Rect designPlace{0, 0, 6500, 6000};

/// The native window of a form, which goes away even when an error escapes from the form.
class OpenForm {
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

/// Says in the screen's language which text of which field cannot be used.
RuntimeError inWords(const DataRefused& refused, const frmCatalogador& form) {
    std::string place = form.caption();
    for (const Field* field : form.fields()) {
        if (!field->holdsText(refused.data())) continue;
        place = field->label().caption();
        form.LimpiarCaption(place);
    }
    std::string shown = refused.data();
    // A message box ends at some of these and breaks its line at others.
    std::replace_if(
        shown.begin(), shown.end(), [](unsigned char c) { return c < ' '; }, ' ');
    const std::string text =
        replaceText(ObtenerMensaje(message::textRefused), "[p2]", place, Compare::binary);
    return {refused.number(), replaceText(text, "[p1]", shown, Compare::binary)};
}

}  // namespace

frmCatalogador::frmCatalogador(Host& host)
    : Window(host.surface),
      host_(host),
      records_(mrdoCBase, host.regional,
               [this](const DataRefused& refused) { return inWords(refused, *this); }) {
    add(picBackColor);
    for (const TextField* field : textFields()) {
        add(field->label());
        add(field->box());
    }
    for (const ValueField* field : valueFields()) {
        add(field->label());
        add(field->box());
        add(field->combo());
        add(field->check());
    }
    add(lblValorSiNo);
    add(chkValorSiNo);
    add(grdGrilla);
    setCaption("Mantenimiento Genérico");
    move(designPlace);
    wireEvents();
}

void frmCatalogador::wireEvents() {
    onResize = [this] { Form_Resize(); };
    onQueryUnload = [this] { Form_QueryUnload(); };
    onUnload = [this] { Form_Unload(); };
    commandBars.onExecute = [this](int id) { cmdBars_Execute(id); };
    commandBars.onResize = [this] { cmdBars_Resize(); };
    onEscape = [this] { leaveInput(); };
    onRefresh = [this] { readListAgain(); };
    wireList(*this);
    wireFields(*this, host_);
}

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

}  // namespace catalogador
