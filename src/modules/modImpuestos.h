#pragma once
#include <cstdint>
#include <string>

#include "platform/host.h"

namespace catalogador {

/// The lowest free receipt position of the taxes, 1 to 10, or -1 when all are taken. An error is
/// reported under the title `titulo` and gives -1.
std::int16_t PosicionLibreTablaReceta(Host& host, rdoConnection& conexion,
                                      const std::string& titulo);

}  // namespace catalogador
