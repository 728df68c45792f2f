#include "form/frmCatalogador.h"
#include "modules/modEliminar.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
constexpr std::int32_t confirmDeleteMessage = 102;
}  // namespace

void frmCatalogador::AccionEliminar() {
    trap("AccionEliminar", [&] {
        const int row = grdGrilla.row();
        if (!hasDataRows() || row < RecordGrid::fixedRows) return;
        showRowToDelete(row);
        const std::string question = replaceText(ObtenerMensaje(confirmDeleteMessage), "[p1]",
                                                 nameOfRow(row), Compare::binary);
        if (host_.messages.MostrarMensaje(question, styleQuestionDefaultNo, mstrAppName) !=
            answerYes)
            return;
        mlngIdDato = codeOfRow(row);
        if (mlngIdDato <= 0 || !PermitirEliminar(host_, gstrNombreVista, mlngIdDato, *mrdoCBase,
                                                 mstrAppName, mlngUsuario))
            return;
        deleteRecord();
    });
}

void frmCatalogador::showRowToDelete(int row) {
    // Nobody should delete what the filter keeps out of sight.
    grdGrilla.setRowHidden(row, false);
    if (!grdGrilla.rowIsShown(row)) grdGrilla.setTopRow(row);
}

std::string frmCatalogador::nameOfRow(int row) const {
    // A code that is as short as this says little without the text beside it.
    constexpr std::size_t shortText = 8;
    std::string name;
    for (int column = 0; column < grdGrilla.columns(); ++column) {
        const std::string_view text = trim(grdGrilla.text(row, column));
        if (text.empty() || grdGrilla.columnHidden(column) ||
            grdGrilla.check(row, column) != CheckState::none)
            continue;
        if (!name.empty()) return name + " · " + std::string(text);
        name = text;
        if (lengthInCharacters(name) > shortText) return name;
    }
    return name.empty() ? grdGrilla.code(row) : name;
}

void frmCatalogador::deleteRecord() {
    const PointerDuring hourglass(surface());
    mstrSQL = "Select * From genCodigoTexto  Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
              " And  CTeCodigo =" + decimalText(mlngIdDato);
    openRecords(Purpose::writing);
    if (mrdoRegistro->atEnd()) {
        mrdoRegistro->Close();
        return;
    }
    // Reading the stamp fails on a row that vanished in between, which is then reported.
    static_cast<void>(stampOfRecord());
    const std::int32_t problem = mrdoRegistro->atEnd() ? recordGoneMessage : removeRecord();
    mrdoRegistro->Close();
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

std::int32_t frmCatalogador::removeRecord() {
    try {
        mrdoRegistro->Delete();
        return 0;
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::rowChanged) return conflictOfRecord();
        if (error.cause() != ErrorCause::outcomeUnknown) throw;
    }
    // The answer was lost. What is gone was deleted; anything else is seen in the list.
    const auto gone = outcomeOfWrite([&]() -> std::optional<bool> {
        try {
            openRecords();
            if (mrdoRegistro->atEnd()) return true;
        } catch (const RuntimeError&) {
            // The database cannot be asked, so the outcome stays unknown.
        }
        return std::nullopt;
    });
    return gone ? 0 : outcomeUnknownMessage;
}

}  // namespace catalogador
