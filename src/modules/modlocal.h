#pragma once
#include <cstdint>
#include <string>

#include "platform/host.h"

namespace catalogador {

/// Whether the current user may open a view. `usuario` is filled in when it is unknown (-1) or
/// when the view has an access rule. Tells the user when the right is missing. An error is
/// reported and gives false.
bool ValidarAccesoForm(Host& host, rdoConnection& conexion, std::int16_t idVista,
                       std::int16_t empresa, const std::string& appKey, std::int32_t& usuario);

/// Asks for the user's rights on an option and for the user's id. False on an error, which is not
/// reported.
bool ObtenerPermisos(Host& host, rdoConnection& conexion, const std::string& opcion,
                     std::int16_t empresa, const std::string& appKey, std::string& permisos,
                     std::int32_t& usuario);

}  // namespace catalogador
