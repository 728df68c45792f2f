#include "modules/modlocal.h"

#include "modules/messages.h"
#include "modules/modErrores.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// Option, right and whether the company counts.
constexpr std::size_t elementsOfRule = 3;

struct ViewAccess {
    std::string rule;
    std::string title;
};

ViewAccess readViewAccess(Host& host, rdoConnection& conexion, std::int16_t idVista) {
    const PointerDuring hourglass(host.surface);
    const std::string sql =
        "Select ABMTitulo, ABMValidarAcceso From Catalogador "
        "Where ABMIDFormVista = " +
        decimalText(idVista);
    const auto row = conexion.OpenResultset(sql);
    ViewAccess access;
    if (!row->atEnd()) {
        access.rule = toTextOrEmpty(row->value("ABMValidarAcceso"), host.regional);
        access.title = toTextOrEmpty(row->value("ABMTitulo"), host.regional);
    }
    row->Close();
    return access;
}

/// Whether the user has the right that the view's rule asks for; says so to the user when not.
bool ruleAllows(Host& host, rdoConnection& conexion, const ViewAccess& access, std::int16_t empresa,
                std::int32_t& usuario) {
    const std::vector<std::string> parts = splitText(access.rule, "|");
    if (parts.size() < elementsOfRule)
        throw RuntimeError(error_number::subscriptOutOfRange, "Subscript out of range");
    const std::int16_t company = leadingNumber(parts[2]) == 0 ? std::int16_t{0} : empresa;
    std::string permisos;
    // Rights of a rule are kept without an application key, whatever the host's key is.
    ObtenerPermisos(host, conexion, parts[0], company, "", permisos, usuario);
    if (!permisos.empty() && containsText(permisos, parts[1], Compare::text)) return true;
    host.messages.MostrarMensaje(
        replaceText(ObtenerMensaje(message::noRightToOpen), "[p]", access.title, Compare::binary),
        styleExclamation, "ATENCIÓN");
    return false;
}

}  // namespace

bool ValidarAccesoForm(Host& host, rdoConnection& conexion, std::int16_t idVista,
                       std::int16_t empresa, const std::string& appKey, std::int32_t& usuario) {
    // No view is open yet, so the error has no view's title to be shown under.
    return trapped(host, "ValidarAccesoForm", "", false, [&] {
        const ViewAccess access = readViewAccess(host, conexion, idVista);
        if (!access.rule.empty()) return ruleAllows(host, conexion, access, empresa, usuario);
        std::string permisos;
        if (usuario < 0 || appKey.empty())
            ObtenerPermisos(host, conexion, "Contactos", 0, appKey, permisos, usuario);
        return true;
    });
}

bool ObtenerPermisos(Host& host, rdoConnection& conexion, const std::string& opcion,
                     std::int16_t empresa, const std::string& appKey, std::string& permisos,
                     std::int32_t& usuario) {
    try {
        const auto accesos = host.access.create();
        permisos = trim(accesos->PermisosOpcion(conexion, appKey, opcion, empresa));
        accesos->UsuarioActual(conexion, appKey, usuario);
        return true;
    } catch (const RuntimeError& error) {
        currentError() = {error.number(), error.description()};
        return false;
    }
}

}  // namespace catalogador
