#include "modules/modImpuestos.h"

#include "modules/modErrores.h"
#include "modules/modIds.h"
#include "runtime/convert.h"

namespace catalogador {

namespace {

constexpr std::int16_t lastPosition = 10;
constexpr std::int16_t noPosition = -1;

std::int16_t firstGap(rdoResultset& positions, const Regional& regional) {
    for (std::int16_t i = 1; i <= lastPosition; ++i) {
        if (positions.atEnd()) return i;
        const Variant position = positions.value("ImpPosTblReceta");
        if (toDouble(position, regional) != i) return i;
        positions.MoveNext();
    }
    return noPosition;
}

}  // namespace

std::int16_t PosicionLibreTablaReceta(Host& host, rdoConnection& conexion,
                                      const std::string& titulo) {
    return trapped(host, "PosicionLibreTablaReceta", titulo, noPosition, [&] {
        const PointerDuring hourglass(host.surface);
        const auto positions = conexion.OpenResultset(
            "Select ImpPosTblReceta From cceImpuestos Order by ImpPosTblReceta asc");
        const std::int16_t free = firstGap(*positions, host.regional);
        positions->Close();
        return free;
    });
}

}  // namespace catalogador
