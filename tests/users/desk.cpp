#include "desk.h"

#include <algorithm>
#include <utility>

#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"

namespace catalogador::test {

int YesSurface::messageBox(const std::string& text, int style, const std::string& title) {
    if (style != styleExclamation) return answerYes;
    told.push_back(text);
    return script::WindowlessSurface::messageBox(text, style, title);
}

void YesSurface::errorBox(const ErrorNotice& error) {
    told.push_back(error.text + ": " + error.detail);
}

Desk::Desk(std::unique_ptr<rdoConnection> connection) : connection_(std::move(connection)) {
    component_.Coneccion(connection_.get());
    component_.Empresa(1);
    component_.AppKey("VEM04");
    component_.Idioma(1);
}

void Desk::open(std::int16_t view, const std::function<void(frmCatalogador&)>& work) {
    surface_.setModalRunner([&](Window& window) {
        work(dynamic_cast<frmCatalogador&>(window));
        window.requestClose();
    });
    component_.ActivarABM(view, 0, "");
}

std::vector<std::string> Desk::takeTold() {
    return std::exchange(surface_.told, {});
}

bool Desk::isUnknown(const std::vector<std::string>& told) {
    const std::string words = ObtenerMensaje(message::outcomeUnknown);
    return std::any_of(told.begin(), told.end(),
                       [&](const std::string& text) { return text.starts_with(words); });
}

}  // namespace catalogador::test
