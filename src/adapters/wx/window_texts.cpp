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
    return {textOr(message::yesButton, "&Sí"),
            textOr(message::noButton, "&No"),
            textOr(message::okButton, "&Aceptar"),
            textOr(message::questionTitle, "Pregunta"),
            textOr(message::noticeTitle, "Aviso"),
            textOr(message::errorTitle, "Error"),
            textOr(message::replaceFile, "El archivo \"[p1]\" ya existe. ¿Desea reemplazarlo?")};
}

}  // namespace catalogador::wx
