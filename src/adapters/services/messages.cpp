#include "adapters/services/messages.h"

namespace catalogador::services {

int SurfaceMessages::MostrarMensaje(const std::string& text, int style, const std::string& title) {
    return surface_.messageBox(text, style, title);
}

void SurfaceMessages::MostrarError(const std::string& text, const std::string& title,
                                   const std::string& detail, const std::string& context,
                                   const std::string& task) {
    surface_.errorBox({text, title, detail, context, task});
}

}  // namespace catalogador::services
