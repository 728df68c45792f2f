#include "component/clsCatalogador.h"
#include "form/frmCatalogador.h"
#include "form/startup/combo_source.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t outOfStackSpace = 28;
/// Each screen runs inside of the one below it, on the stack of the thread, which a host may have
/// made small.
constexpr int deepestScreen = 50;

}  // namespace

void frmCatalogador::AccionF2(std::int16_t accion, ComboBox* combo, std::int32_t dato) {
    trap("AccionF2", [&] {
        if (depth >= deepestScreen)
            throw RuntimeError(outOfStackSpace, decimalText(deepestScreen) +
                                                    " screens are open one above the other; close "
                                                    "this one before another is opened");
        clsCatalogador nested(host_, depth + 1);
        nested.Coneccion(mrdoCBase);
        nested.AppKey(mstrAppKey);
        nested.Empresa(mintEmpresa);
        if (!nested.ActivarABM(accion, dato, "") || nested.IDModificado() < 1 || combo == nullptr)
            return;
        fillCombo(*this, *combo, combo->tag);
        combo->setListIndex(combo->findItemData(nested.IDModificado()));
        CargarGrilla();
        grdGrilla.refresh();
    });
}

}  // namespace catalogador
