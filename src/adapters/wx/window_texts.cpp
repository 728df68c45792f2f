#include "adapters/wx/window_texts.h"

#include "modules/modLenguaje.h"

namespace catalogador::wx {

std::string windowText(std::int32_t number) {
    return ObtenerMensaje(number);
}

BoxLabels boxLabels() {
    const auto textOr = [](std::int32_t number, const char* spanish) {
        return messageIfKnown(number).value_or(spanish);
    };
    return {
        textOr(window_text::yes, "&Sí"),
        textOr(window_text::no, "&No"),
        textOr(window_text::ok, "&Aceptar"),
        textOr(window_text::question, "Pregunta"),
        textOr(window_text::notice, "Aviso"),
        textOr(window_text::error, "Error"),
        textOr(window_text::replaceFile, "El archivo \"[p1]\" ya existe. ¿Desea reemplazarlo?")};
}

}  // namespace catalogador::wx
