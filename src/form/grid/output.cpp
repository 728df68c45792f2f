#include "form/frmCatalogador.h"
#include "runtime/error.h"

namespace catalogador {

namespace {
constexpr std::int32_t actionNotSupported = 445;
}

void frmCatalogador::AccionExportarDatosGrilla() {
    trap("AccionExportarDatosGrilla",
         [] { throw RuntimeError(actionNotSupported, "This version cannot export yet"); });
}

void frmCatalogador::AccionImprimirDatosGrilla() {
    trap("AccionImprimirDatosGrilla",
         [] { throw RuntimeError(actionNotSupported, "This version cannot print yet"); });
}

}  // namespace catalogador
