#include "component/clsCatalogador.h"
#include "form/frmCatalogador.h"
#include "runtime/text.h"

namespace catalogador {

void frmCatalogador::AccionF2(std::int16_t accion, ComboBox* combo, std::int32_t dato) {
    trap("AccionF2", [&] {
        clsCatalogador nested(host_);
        nested.Coneccion(mrdoCBase);
        nested.AppKey(mstrAppKey);
        nested.Empresa(mintEmpresa);
        if (!nested.ActivarABM(accion, dato, "") || nested.IDModificado() < 1 || combo == nullptr)
            return;
        fillCombo(*combo, combo->tag);
        combo->setListIndex(combo->findItemData(nested.IDModificado()));
        CargarGrilla();
        grdGrilla.refresh();
    });
}

}  // namespace catalogador
