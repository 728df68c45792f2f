#include <utility>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modImpuestos.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t confirmMessage = 100;
constexpr std::int32_t duplicateRuleMessage = 116;
constexpr std::int32_t noCodeMessage = 508;

/// Why there is no new code, for somebody who is to do something about it.
std::int32_t reasonMessage(ErrorCause cause) {
    constexpr std::int32_t anyReason = 516;
    constexpr std::pair<ErrorCause, std::int32_t> messages[] = {
        {ErrorCause::conflict, 510},       {ErrorCause::locked, 510},
        {ErrorCause::readOnly, 511},       {ErrorCause::full, 512},
        {ErrorCause::lost, 513},           {ErrorCause::outcomeUnknown, 513},
        {ErrorCause::sequenceUsedUp, 514}, {ErrorCause::sequenceMissing, 515},
    };
    for (const auto& [known, message] : messages)
        if (known == cause) return message;
    return anyReason;
}

Date wholeSecond(Date date) {
    date.nanosecond = 0;
    return date;
}

}  // namespace

void frmCatalogador::showNotice(std::int32_t message) {
    host_.messages.MostrarMensaje(ObtenerMensaje(message), styleExclamation, mstrAppName);
}

std::string frmCatalogador::TextoError() const {
    return errorText(currentError().number, currentError().description);
}

bool frmCatalogador::ChequearUltFechaModificado() {
    return trap("ChequearUltFechaModificado", false, [] { return false; });
}

void frmCatalogador::AccionGrabar() {
    trap("AccionGrabar", [&] {
        if (!savable() || !GrabarDatos()) return;
        mlngIdUltimo = mlngIdDato;
        CargarGrilla();
        grdGrilla.refresh();
        AccionCancelar();
    });
}

bool frmCatalogador::savable() {
    for (Control* control : controls()) control->setProblem({});
    if (!ValidoCamposObligatorios()) {
        showNotice(requiredMessage);
        return false;
    }
    if (!mstrSQLDuplicados.empty() && !ValidarSQLDuplicados(mstrSQLDuplicados, mlngIdDato)) {
        showNotice(duplicateRuleMessage);
        return false;
    }
    if (!ValidarDatosNumericos()) return false;
    if (host_.messages.MostrarMensaje(ObtenerMensaje(confirmMessage), styleQuestion, mstrAppName) !=
        answerYes)
        return false;
    if (mlngIdVista == viewClassifications &&
        ValidarClasificacion(mlngIdDato, std::string(trim(txtTexto1.text()))))
        return false;
    return VerificarValDuplicados();
}

bool frmCatalogador::GrabarDatos() {
    return trap("GrabarDatos", false, [&] {
        if (leadingNumber(mstrModo) != 2 && !drawNewCode()) return false;
        PointerDuring hourglass(surface());
        mstrSQL =
            "Select * From genCodigoTexto  Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
            " And  CTeCodigo =" + decimalText(mlngIdDato);
        openRecords(Purpose::writing);
        if (!startRow(hourglass)) return false;
        const Date stamp = writeColumns();
        if (const std::int32_t problem = updateRecord(stamp); problem != 0) {
            refuseWrite(hourglass, problem);
            return false;
        }
        mrdoRegistro->Close();
        if (mlngIdVista == viewClassifications) writeUserLists();
        return true;
    });
}

std::int32_t frmCatalogador::updateRecord(const Date& stamp) {
    try {
        mrdoRegistro->Update();
        return 0;
    } catch (const RuntimeError& error) {
        if (error.number() == error_number::rowChanged) return conflictOfRecord();
        if (error.cause() != ErrorCause::outcomeUnknown) throw;
        const auto stored = outcomeOfWrite([&] { return isStored(stamp); });
        if (!stored) return outcomeUnknownMessage;
        if (!*stored) throw;
        return 0;
    }
}

std::optional<bool> frmCatalogador::outcomeOfWrite(
    const std::function<std::optional<bool>()>& look) {
    auto writer = std::exchange(mrdoRegistro, nullptr);
    const std::optional<bool> stored = look();
    writer->outcomeFound(stored);
    if (!mrdoRegistro) mrdoRegistro = std::move(writer);
    return stored;
}

std::int32_t frmCatalogador::conflictOfRecord() {
    openRecords();
    return mrdoRegistro->atEnd() ? recordGoneMessage : recordChangedMessage;
}

std::optional<bool> frmCatalogador::isStored(const Date& stamp) {
    try {
        openRecords();
        if (mrdoRegistro->atEnd()) return false;
        // Nobody else was given this code.
        if (leadingNumber(mstrModo) == 1) return true;
        const Date found = stampOfRecord();
        // A column of whole seconds has cut the stamp off.
        if (found == stamp || (found == wholeSecond(stamp) && found != mdatModificado)) return true;
        // What somebody else has written since may be written over this save or without it.
        if (found > mdatModificado || found == wholeSecond(stamp)) return std::nullopt;
        return false;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

void frmCatalogador::refuseWrite(PointerDuring& hourglass, std::int32_t message) {
    mrdoRegistro->Close();
    hourglass.done();
    showNotice(message);
    if (message == noReceiptPositionMessage || message == outcomeUnknownMessage) return;
    CargarGrilla();
    grdGrilla.refresh();
}

bool frmCatalogador::drawNewCode() {
    const std::int32_t code = host_.utilities.ProximoCodigo(*mrdoCBase, gstrNombreVista);
    if (code == -1) {
        nameSequenceInError();
        host_.messages.MostrarError(ObtenerMensaje(noCodeMessage), mstrAppName, TextoError());
        return false;
    }
    mlngIdDato = code;
    return true;
}

void frmCatalogador::nameSequenceInError() {
    CurrentError& error = currentError();
    const std::string reason = replaceText(ObtenerMensaje(reasonMessage(error.cause)), "[p1]",
                                           gstrNombreVista, Compare::binary);
    const bool told = error.cause == ErrorCause::sequenceMissing ||
                      error.cause == ErrorCause::sequenceUsedUp || error.description.empty();
    error.description = told ? reason : reason + " (" + error.description + ")";
}

bool frmCatalogador::startRow(PointerDuring& hourglass) {
    const std::int32_t problem = leadingNumber(mstrModo) == 1 ? startNewRow() : startChange();
    if (problem != 0) refuseWrite(hourglass, problem);
    return problem == 0;
}

std::int32_t frmCatalogador::startNewRow() {
    std::int16_t position = 0;
    if (mlngIdVista == viewTaxes) {
        position = PosicionLibreTablaReceta(host_, *mrdoCBase, mstrAppName);
        if (position == -1) return noReceiptPositionMessage;
    }
    mrdoRegistro->AddNew();
    mrdoRegistro->setValue("CTeCodigo", mlngIdDato);
    mrdoRegistro->setValue("CTeIDTipoVista", mlngIdVista);
    if (mlngIdVista == viewTaxes) mrdoRegistro->setValue("CTeValor2", position);
    return 0;
}

std::int32_t frmCatalogador::startChange() {
    if (mrdoRegistro->atEnd()) return recordGoneMessage;
    if (stampOfRecord() > mdatModificado) return recordChangedMessage;
    mrdoRegistro->Edit();
    return 0;
}

Date frmCatalogador::writeColumns() {
    const auto trimmed = [](const TextBox& box) { return Variant(trim(box.text())); };
    mrdoRegistro->setValue("CTeTextoCorto", txtTexto1.visible() ? trimmed(txtTexto1)
                                                                : mrdoRegistro->value("CTeCodigo"));
    if (txtTexto2.visible())
        mrdoRegistro->setValue("CTeTextoLargo",
                               txtTexto2.text().empty() ? Variant(Null{}) : trimmed(txtTexto2));
    for (ValueField& field : valueFields_)
        if (kindOf(field.label.tag) > 0) writeValueField(field);
    if (chkValorSiNo.visible()) mrdoRegistro->setValue("CTeSiNo1", chkValorSiNo.value());
    const Date stamp = host_.utilities.FechaServidor(*mrdoCBase);
    mrdoRegistro->setValue("Modificado", stamp);
    if (mblnPorEmpresa) mrdoRegistro->setValue("CTeValor1", mintEmpresa);
    return stamp;
}

void frmCatalogador::writeValueField(ValueField& field) {
    Variant value = Null{};
    const int index = field.combo.listIndex();
    if (field.text.visible() && !field.text.text().empty())
        value = numberForDatabase(field.text.text());
    else if (index != -1 && field.combo.visible())
        value = field.combo.itemData(index);
    else if (field.check.visible())
        value = field.check.value();
    mrdoRegistro->setValue(field.column, value);
}

}  // namespace catalogador
