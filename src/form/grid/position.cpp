#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/base_letters.h"
#include "runtime/convert.h"
#include "runtime/like.h"
#include "runtime/text.h"

namespace catalogador {

void frmCatalogador::FiltrarGrilla(std::string& texto) {
    trap("FiltrarGrilla", [&] {
        const Accents accents = filterAccents();
        if (accents == Accents::ignored) texto = withoutAccents(texto);
        texto = "*" + upperCase(texto) + "*";
        // Only a row that is tested shows that a pattern is none.
        if (hasDataRows() && grdGrilla.columns() > 0) grdGrilla.filter(LikePattern(texto), accents);
    });
}

Accents frmCatalogador::filterAccents() const {
    const Variant setting = host_.utilities.LeerConfiguracion("VEM04", "FiltroSinAcentos");
    return leadingNumber(toTextOrEmpty(setting, host_.regional)) == 1 ? Accents::ignored
                                                                      : Accents::count;
}

void frmCatalogador::SimularFiltrar() {
    trap("SimularFiltrar", [&] {
        if (mblnSinFiltro) return;
        const std::string_view text = trim(commandBars.filterBox.text());
        mblnSinFiltro = true;
        if (text.empty()) return;
        // The filter is applied as if its text had just been entered.
        mblnFiltroAbierto = true;
        AccionFiltrar();
    });
}

void frmCatalogador::PosicionarseGrilla() {
    trap("PosicionarseGrilla", [&] {
        if (mlngIdDato < 1) {
            if (hasDataRows()) grdGrilla.select(RecordGrid::fixedRows, 0);
            return;
        }
        const int row = grdGrilla.findCode(mlngIdDato);
        if (row == 0) return;
        grdGrilla.select(row, 0);
        grdGrilla.setRowHidden(row, false);
        if (!grdGrilla.rowIsShown(row)) grdGrilla.setTopRow(row);
    });
}

void frmCatalogador::GuardarAnchoColumnas() {
    trap("GuardarAnchoColumnas", [&] {
        const PointerDuring hourglass(surface());
        mstrSQL = "Select ABMColumnasAncho from Catalogador Where ABMIDFormVista = " +
                  decimalText(mlngIdVista);
        openRecords();
        mrdoRegistro->Edit();
        mrdoRegistro->setValue("ABMColumnasAncho", mstrAnchoColumnas);
        mrdoRegistro->Update();
        mrdoRegistro->Close();
    });
}

}  // namespace catalogador
