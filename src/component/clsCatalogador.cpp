#include "component/clsCatalogador.h"

#include "form/frmCatalogador.h"
#include "modules/messages.h"
#include "modules/modErrores.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "modules/modlocal.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
constexpr std::uint8_t resultKnownOrNoCode = 0;
constexpr std::uint8_t resultAdded = 1;
constexpr std::uint8_t resultMissingArgument = 9;
}  // namespace

clsCatalogador::clsCatalogador(Host& host, int depth) : host_(host), depth_(depth) {
    if (CargarLenguaje(host, "VEM04", "VEM04", "Catalogador") == 0)
        throw RuntimeError(error_number::languageMissing, "Falta componente de lenguaje.",
                           "ObjetoLenguaje");
}

void clsCatalogador::report(std::int32_t message, const RuntimeError& error) {
    host_.messages.MostrarError(ObtenerMensaje(message), applicationName_,
                                errorText(error.number(), error.description()));
}

bool clsCatalogador::ActivarABM(std::int16_t ABM, std::int32_t IDValor, const std::string& Valor) {
    if (ABM < 1 || connection_ == nullptr) return false;
    try {
        if (!ValidarAccesoForm(host_, *connection_, ABM, company_, appKey_, user_)) return false;
        showForm(ABM, IDValor, Valor);
        return true;
    } catch (const RuntimeError& error) {
        report(message::activationFailed, error);
        return false;
    }
}

void clsCatalogador::showForm(std::int16_t view, std::int32_t code, const std::string& text) {
    frmCatalogador form(host_);
    form.mrdoCBase = connection_;
    form.mintEmpresa = company_;
    form.mstrAppKey = appKey_;
    form.mintIdioma = language_;
    form.mlngUsuario = user_;
    form.mlngIdVista = view;
    form.mlngIdDato = code;
    form.mstrValorTexto1 = text;
    form.depth = depth_;
    form.showModal();
    lastModified_ = form.mlngIdUltimo;
}

std::uint8_t clsCatalogador::AddNew(std::int16_t IDVista, const std::string& NombreVista,
                                    const std::string& Valor) {
    if (appKey_.empty() || connection_ == nullptr || IDVista <= 0 || NombreVista.empty() ||
        Valor.empty())
        return resultMissingArgument;
    std::uint8_t result = resultMissingArgument;
    try {
        insertText(IDVista, NombreVista, Valor, result);
    } catch (const RuntimeError& error) {
        const bool unknown = error.cause() == ErrorCause::outcomeUnknown;
        report(unknown ? message::outcomeUnknown : message::addingFailed, error);
    }
    return result;
}

void clsCatalogador::insertText(std::int16_t view, const std::string& sequence,
                                const std::string& text, std::uint8_t& result) {
    const PointerDuring hourglass(host_.surface);
    const SqlText sql = "Select * From genCodigoTexto Where CTeIDTipoVista = " + decimalText(view) +
                        " And  CTeTextoCorto = '" +
                        SqlText::ofData(replaceText(text, "'", "''", Compare::binary)) + "'";
    const auto rows = connection_->OpenResultset(sql);
    const std::int32_t code =
        rows->atEnd() ? host_.utilities.ProximoCodigo(*connection_, sequence) : -1;
    if (code == -1) {
        result = resultKnownOrNoCode;
        rows->Close();
        return;
    }
    rows->AddNew();
    rows->setValue("CTeIDTipoVista", view);
    rows->setValue("CTeCodigo", code);
    rows->setValue("CTeTextoCorto", text);
    rows->setValue("Modificado", host_.utilities.FechaServidor(*connection_));
    updateAdded(*rows, view, code);
    // What fails from here on does not undo the record.
    lastModified_ = code;
    result = resultAdded;
    rows->Close();
}

void clsCatalogador::updateAdded(rdoResultset& rows, std::int16_t view, std::int32_t code) {
    try {
        rows.Update();
    } catch (const RuntimeError& error) {
        if (error.cause() != ErrorCause::outcomeUnknown) throw;
        const auto stored = isStored(view, code);
        rows.outcomeFound(stored);
        if (!stored) throw;
        if (!*stored) throw RuntimeError(error.number(), error.description(), ErrorCause::lost);
    }
}

std::optional<bool> clsCatalogador::isStored(std::int16_t view, std::int32_t code) {
    try {
        // The sequence gives a code only once, so its record is the one that was added.
        return !connection_
                    ->OpenResultset("Select * From genCodigoTexto Where CTeIDTipoVista = " +
                                    decimalText(view) + " And CTeCodigo = " + decimalText(code))
                    ->atEnd();
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace catalogador
