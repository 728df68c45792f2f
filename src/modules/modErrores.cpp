#include "modules/modErrores.h"

#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

void reportError(Host& host, std::int32_t message, const std::string& procedure,
                 const std::string& applicationName, const RuntimeError& error) {
    const std::string text =
        replaceText(ObtenerMensaje(message), "[p]", procedure, Compare::binary);
    currentError() = {error.number(), error.description()};
    host.messages.MostrarError(text, applicationName,
                               errorText(error.number(), error.description()));
}

}  // namespace catalogador
