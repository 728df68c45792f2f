#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modEliminar.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

void showRowToDelete(RecordGrid& grid, int row) {
    // The user must see the record that is about to be deleted, even if the filter hides it.
    grid.setRowHidden(row, false);
    if (!grid.rowIsShown(row)) grid.setTopRow(row);
}

/// Deletes the row that was opened for writing; gives 0, or the number of the message that says
/// why it was not deleted, or may not have been.
std::int32_t removeRow(WorkingRecords& records) {
    try {
        records.mrdoRegistro->Delete();
        return 0;
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::rowChanged) return records.conflict();
        if (error.cause() != ErrorCause::outcomeUnknown) throw;
    }
    // The answer was lost. What is gone was deleted; anything else is seen in the list.
    const auto gone = records.outcomeOfWrite([&]() -> std::optional<bool> {
        try {
            records.open();
            if (records.mrdoRegistro->atEnd()) return true;
        } catch (const RuntimeError&) {
            // The database cannot be asked, so the outcome stays unknown.
        }
        return std::nullopt;
    });
    return gone ? 0 : message::outcomeUnknown;
}

}  // namespace

void frmCatalogador::AccionEliminar() {
    trap("AccionEliminar", [&] {
        const int row = grdGrilla.row();
        if (!hasDataRows(grdGrilla) || row < RecordGrid::fixedRows) return;
        showRowToDelete(grdGrilla, row);
        const std::string question = replaceText(ObtenerMensaje(message::confirmDelete), "[p1]",
                                                 nameOfRow(grdGrilla, row), Compare::binary);
        if (host_.messages.MostrarMensaje(question, styleQuestionDefaultNo, mstrAppName) !=
            answerYes)
            return;
        mlngIdDato = codeOfRow(grdGrilla, row, host_.regional);
        if (mlngIdDato <= 0 || !PermitirEliminar(host_, gstrNombreVista, mlngIdDato, *mrdoCBase,
                                                 mstrAppName, mlngUsuario))
            return;
        deleteRecord();
    });
}

void frmCatalogador::deleteRecord() {
    const PointerDuring hourglass(surface());
    records_.mstrSQL =
        "Select * From genCodigoTexto  Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
        " And  CTeCodigo =" + decimalText(mlngIdDato);
    records_.open(WorkingRecords::Purpose::writing);
    if (records_.mrdoRegistro->atEnd()) {
        records_.mrdoRegistro->Close();
        return;
    }
    // Reading the stamp fails on a row that vanished in between, which is then reported.
    static_cast<void>(records_.stamp());
    const std::int32_t problem =
        records_.mrdoRegistro->atEnd() ? message::recordGone : removeRow(records_);
    records_.mrdoRegistro->Close();
    if (problem == 0) {
        mlngIdUltimo = mlngIdDato;
    } else {
        surface().pointerChanged(pointerDefault);
        showNotice(problem);
    }
    mlngIdDato = 0;
    CargarGrilla();
    grdGrilla.refresh();
}

}  // namespace catalogador
