#pragma once
#include <cstdint>
#include <string>

#include "platform/rdo.h"

namespace catalogador {

/// What the public class gives the form before it shows it, and reads back after that.
struct ActivationValues {
    /// The host's connection, not owned; null once the form is closed.
    rdoConnection* mrdoCBase = nullptr;
    std::int16_t mintEmpresa = 0;
    std::string mstrAppKey;
    std::int16_t mintIdioma = 0;
    /// Title of every message box: the view's title.
    std::string mstrAppName;
    std::int32_t mlngUsuario = -1;
    std::int16_t mlngIdVista = 0;
    /// Text that a new record starts with when the form opens on code -1.
    std::string mstrValorTexto1;
    std::string gstrNombreVista;
    /// Record being edited: 0 for none or a new one. At start: >= 1 opens that record, -1 starts a
    /// new one.
    std::int32_t mlngIdDato = 0;
    /// Screens that are open inside one another, this one included: 1 for the host's own.
    int depth = 1;
    /// Code of the last record saved or deleted.
    std::int32_t mlngIdUltimo = 0;
};

}  // namespace catalogador
