#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
constexpr Color inactiveColor{0x00E0E0E0};
}

void frmCatalogador::SetButtonState(bool browse) {
    trap("SetButtonState", [&] {
        for (const int id : {action::filter, action::filterBox, action::create})
            commandBars.setEnabled(id, browse);
        for (const int id : {action::modify, action::remove})
            commandBars.setEnabled(id, browse && hasDataRows());
        for (const int id : {action::save, action::cancel}) commandBars.setEnabled(id, !browse);
        const Color fieldColor = browse ? inactiveColor : systemWindowColor;
        grdGrilla.setTabStop(browse);
        grdGrilla.setBackColor(browse ? systemWindowColor : inactiveColor);
        for (TextField& field : textFields_) {
            if (kindOf(field.label.tag) <= 0) continue;
            field.label.setEnabled(!browse);
            field.text.setEnabled(!browse);
            field.text.setBackColor(fieldColor);
        }
        for (ValueField& field : valueFields_) enableValueField(field, !browse, fieldColor);
        if (kindOf(chkValorSiNo.tag) > 0) {
            lblValorSiNo.setEnabled(!browse);
            chkValorSiNo.setEnabled(!browse);
        }
    });
}

void frmCatalogador::enableValueField(ValueField& field, bool editing, Color color) {
    if (kindOf(field.label.tag) <= 0) return;
    field.label.setEnabled(editing);
    if (field.label.tag == "1") {
        field.text.setEnabled(editing);
        field.text.setBackColor(color);
    } else if (field.label.tag == "2") {
        field.combo.setEnabled(editing);
        field.combo.setBackColor(color);
    } else {
        field.check.setEnabled(editing);
    }
}

void frmCatalogador::AccionNuevo() {
    trap("AccionNuevo", [&] {
        mlngIdDato = 0;
        mstrModo = "1";
        grdGrilla.select(0, 0);
        SetButtonState(false);
        setFocus(picBackColor);
        pressKey(key::tab);
        contentsAtStart_ = contents();
    });
}

void frmCatalogador::AccionModificar() {
    trap("AccionModificar", [&] {
        const int row = grdGrilla.row();
        if (!hasDataRows() || row < RecordGrid::fixedRows || grdGrilla.rowHidden(row)) return;
        grdGrilla.bringIntoSight(row);
        // A Null column leaves its field alone, which must not keep another record's value.
        if (!browsing()) LimpiarControles();
        mlngIdDato = codeOfRow(row);
        if (!CargoDatos(mlngIdDato)) {
            AccionCancelar();
            return;
        }
        mstrModo = "2";
        SetButtonState(false);
        contentsAtStart_ = contents();
    });
}

void frmCatalogador::AccionCancelar() {
    trap("AccionCancelar", [&] {
        mstrModo = "0";
        LimpiarControles();
        SetButtonState(true);
        if (hasDataRows() && grdGrilla.row() < RecordGrid::fixedRows)
            grdGrilla.select(RecordGrid::fixedRows, 0);
        setFocus(grdGrilla);
    });
}

}  // namespace catalogador
