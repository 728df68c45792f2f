#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "platform/controls/keys.h"

namespace catalogador {

namespace {
constexpr Color inactiveColor{0x00E0E0E0};
}

void frmCatalogador::SetButtonState(bool browse) {
    trap("SetButtonState", [&] {
        for (const int id : {action::filter, action::filterBox, action::create})
            commandBars.setEnabled(id, browse);
        for (const int id : {action::modify, action::remove})
            commandBars.setEnabled(id, browse && hasDataRows(grdGrilla));
        for (const int id : {action::save, action::cancel}) commandBars.setEnabled(id, !browse);
        const Color fieldColor = browse ? inactiveColor : systemWindowColor;
        grdGrilla.setTabStop(browse);
        grdGrilla.setBackColor(browse ? systemWindowColor : inactiveColor);
        for (Field* field : fields()) field->enable(!browse, fieldColor);
    });
}

void frmCatalogador::AccionNuevo() {
    trap("AccionNuevo", [&] {
        mlngIdDato = 0;
        mstrModo = "1";
        grdGrilla.select(0, 0);
        SetButtonState(false);
        setFocus(picBackColor);
        pressKey(key::tab);
        contentsWhenEditBegan_ = contentsOfFields();
    });
}

void frmCatalogador::AccionModificar() {
    trap("AccionModificar", [&] {
        const int row = grdGrilla.row();
        if (!hasDataRows(grdGrilla) || row < RecordGrid::fixedRows || grdGrilla.rowHidden(row))
            return;
        grdGrilla.bringIntoSight(row);
        // A Null column leaves its field alone, which must not keep another record's value.
        if (!browsing()) LimpiarControles();
        mlngIdDato = codeOfRow(grdGrilla, row, host_.regional);
        if (!CargoDatos(mlngIdDato)) {
            AccionCancelar();
            return;
        }
        mstrModo = "2";
        SetButtonState(false);
        contentsWhenEditBegan_ = contentsOfFields();
    });
}

void frmCatalogador::AccionCancelar() {
    trap("AccionCancelar", [&] {
        mstrModo = "0";
        LimpiarControles();
        SetButtonState(true);
        if (hasDataRows(grdGrilla) && grdGrilla.row() < RecordGrid::fixedRows)
            grdGrilla.select(RecordGrid::fixedRows, 0);
        setFocus(grdGrilla);
    });
}

bool frmCatalogador::confirmDiscard() {
    if (browsing() || contentsOfFields() == contentsWhenEditBegan_) return true;
    return host_.messages.MostrarMensaje(ObtenerMensaje(message::confirmDiscard),
                                         styleQuestionDefaultNo, mstrAppName) == answerYes;
}

}  // namespace catalogador
