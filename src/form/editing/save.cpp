#include <utility>

#include "form/editing/record_saver.h"
#include "form/editing/user_lists.h"
#include "form/frmCatalogador.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t noCode = -1;

/// Why there is no new code, for somebody who is to do something about it.
std::int32_t reasonMessage(ErrorCause cause) {
    constexpr std::pair<ErrorCause, std::int32_t> messages[] = {
        {ErrorCause::conflict, message::sequenceHeld},
        {ErrorCause::locked, message::sequenceHeld},
        {ErrorCause::readOnly, message::sequenceReadOnly},
        {ErrorCause::full, message::sequenceWithoutRoom},
        {ErrorCause::lost, message::sequenceConnectionLost},
        {ErrorCause::outcomeUnknown, message::sequenceConnectionLost},
        {ErrorCause::sequenceUsedUp, message::sequenceUsedUp},
        {ErrorCause::sequenceMissing, message::sequenceMissing},
    };
    for (const auto& [known, reason] : messages)
        if (known == cause) return reason;
    return message::sequenceNotRead;
}

/// Puts the description of the current error into words for the user, which name the sequence.
void nameSequenceInError(const std::string& sequence) {
    CurrentError& error = currentError();
    const std::string reason =
        replaceText(ObtenerMensaje(reasonMessage(error.cause)), "[p1]", sequence, Compare::binary);
    const bool saysAll = error.cause == ErrorCause::sequenceMissing ||
                         error.cause == ErrorCause::sequenceUsedUp || error.description.empty();
    error.description = saysAll ? reason : reason + " (" + error.description + ")";
}

void writeUserLists(frmCatalogador& form, const Regional& regional) {
    std::int16_t list = user_list::order;
    if (form.modo() == "1") {
        std::string codes = codesInOrder(form.grdGrilla);
        appendCode(codes, decimalText(form.mlngIdDato));
        form.GrabarLista(form.mlngUsuario, list, codes);
    }
    list = user_list::unticked;
    const bool ticked = form.chkValorSiNo.value() != 0;
    form.GrabarLista(form.mlngUsuario, list,
                     untickedCodes(form.grdGrilla, form.mlngIdDato, ticked, regional));
}

}  // namespace

void frmCatalogador::showNotice(std::int32_t message) {
    host_.messages.MostrarMensaje(ObtenerMensaje(message), styleExclamation, mstrAppName);
}

std::string frmCatalogador::TextoError() const {
    return errorText(currentError().number, currentError().description);
}

bool frmCatalogador::ChequearUltFechaModificado() {
    // Empty because RecordSaver compares the stamps; only the name is kept, for those who know it.
    return trap("ChequearUltFechaModificado", false, [] { return false; });
}

void frmCatalogador::AccionGrabar() {
    trap("AccionGrabar", [&] {
        if (!checkAndConfirm() || !GrabarDatos()) return;
        mlngIdUltimo = mlngIdDato;
        CargarGrilla();
        grdGrilla.refresh();
        AccionCancelar();
    });
}

bool frmCatalogador::checkAndConfirm() {
    for (Control* control : controls()) control->setProblem({});
    if (!ValidoCamposObligatorios()) {
        showNotice(message::required);
        return false;
    }
    if (!mstrSQLDuplicados.empty() && !ValidarSQLDuplicados(mstrSQLDuplicados, mlngIdDato)) {
        showNotice(message::duplicateRule);
        return false;
    }
    if (!ValidarDatosNumericos()) return false;
    if (host_.messages.MostrarMensaje(ObtenerMensaje(message::confirmSave), styleQuestion,
                                      mstrAppName) != answerYes)
        return false;
    if (mlngIdVista == viewClassifications &&
        ValidarClasificacion(mlngIdDato, trimmedText(txtTexto1)))
        return false;
    return VerificarValDuplicados();
}

bool frmCatalogador::GrabarDatos() {
    return trap("GrabarDatos", false, [&] {
        if (leadingNumber(mstrModo) != 2 && !drawNewCode()) return false;
        PointerDuring hourglass(surface());
        records_.mstrSQL =
            "Select * From genCodigoTexto  Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
            " And  CTeCodigo =" + decimalText(mlngIdDato);
        records_.open(WorkingRecords::Purpose::writing);
        EditedRecord record{mlngIdVista, mlngIdDato, leadingNumber(mstrModo) == 1, mdatModificado,
                            std::nullopt};
        if (mblnPorEmpresa) record.company = mintEmpresa;
        const std::int32_t problem =
            RecordSaver(host_, *mrdoCBase, records_, record, mstrAppName).save(fields());
        records_.mrdoRegistro->Close();
        if (problem == 0) {
            if (mlngIdVista == viewClassifications) writeUserLists(*this, host_.regional);
            return true;
        }
        hourglass.done();
        showNotice(problem);
        if (problem == message::noReceiptPosition || problem == message::outcomeUnknown)
            return false;
        // The list shows what is stored now.
        CargarGrilla();
        grdGrilla.refresh();
        return false;
    });
}

bool frmCatalogador::drawNewCode() {
    const std::int32_t code = host_.utilities.ProximoCodigo(*mrdoCBase, gstrNombreVista);
    if (code == noCode) {
        nameSequenceInError(gstrNombreVista);
        host_.messages.MostrarError(ObtenerMensaje(message::noCode), mstrAppName, TextoError());
        return false;
    }
    mlngIdDato = code;
    return true;
}

void frmCatalogador::GrabarLista(std::int32_t& clave, std::int16_t& lista,
                                 const std::string& texto) {
    ignoringErrors([&] {
        const PointerDuring hourglass(surface());
        records_.mstrSQL = "Select * From genListas Where LisIDLista = " + decimalText(lista) +
                           " And LisIDClave = " + decimalText(clave);
        records_.open(WorkingRecords::Purpose::writing);
        rdoResultset& row = *records_.mrdoRegistro;
        if (row.atEnd()) {
            row.AddNew();
            row.setValue("LisIDLista", lista);
            row.setValue("LisIDClave", clave);
        } else {
            row.Edit();
        }
        row.setValue("LisLista", texto);
        row.Update();
        row.Close();
    });
}

void frmCatalogador::GrabarListaGrilla() {
    ignoringErrors([&] {
        std::int16_t list = user_list::order;
        GrabarLista(mlngUsuario, list, codesInOrder(grdGrilla));
    });
}

}  // namespace catalogador
