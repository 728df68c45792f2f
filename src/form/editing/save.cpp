#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modImpuestos.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t confirmMessage = 100;
constexpr std::int32_t requiredMessage = 101;
constexpr std::int32_t recordGoneMessage = 113;
constexpr std::int32_t recordChangedMessage = 114;
constexpr std::int32_t duplicateRuleMessage = 116;
constexpr std::int32_t noReceiptPositionMessage = 118;
constexpr std::int32_t noCodeMessage = 508;

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
        const PointerDuring hourglass(surface());
        mstrSQL =
            "Select * From genCodigoTexto  Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
            " And  CTeCodigo =" + decimalText(mlngIdDato);
        openRecords(Purpose::writing);
        if (!startRow()) return false;
        writeColumns();
        mrdoRegistro->Update();
        mrdoRegistro->Close();
        if (mlngIdVista == viewClassifications) writeUserLists();
        return true;
    });
}

bool frmCatalogador::drawNewCode() {
    const std::int32_t code = host_.utilities.ProximoCodigo(*mrdoCBase, gstrNombreVista);
    if (code == -1) {
        host_.messages.MostrarError(ObtenerMensaje(noCodeMessage), mstrAppName, TextoError());
        return false;
    }
    mlngIdDato = code;
    return true;
}

bool frmCatalogador::startRow() {
    if (leadingNumber(mstrModo) == 1) return startNewRow();
    return recordUnchanged();
}

bool frmCatalogador::startNewRow() {
    std::int16_t position = 0;
    if (mlngIdVista == viewTaxes) {
        position = PosicionLibreTablaReceta(host_, *mrdoCBase, mstrAppName);
        if (position == -1) {
            mrdoRegistro->Close();
            surface().pointerChanged(pointerDefault);
            showNotice(noReceiptPositionMessage);
            return false;
        }
    }
    mrdoRegistro->AddNew();
    mrdoRegistro->setValue("CTeCodigo", mlngIdDato);
    mrdoRegistro->setValue("CTeIDTipoVista", mlngIdVista);
    if (mlngIdVista == viewTaxes) mrdoRegistro->setValue("CTeValor2", position);
    return true;
}

bool frmCatalogador::recordUnchanged() {
    std::int32_t problem = 0;
    if (mrdoRegistro->atEnd())
        problem = recordGoneMessage;
    else if (stampOfRecord() > mdatModificado)
        problem = recordChangedMessage;
    if (problem == 0) {
        mrdoRegistro->Edit();
        return true;
    }
    mrdoRegistro->Close();
    surface().pointerChanged(pointerDefault);
    showNotice(problem);
    CargarGrilla();
    grdGrilla.refresh();
    return false;
}

void frmCatalogador::writeColumns() {
    const auto trimmed = [](const TextBox& box) { return Variant(trim(box.text())); };
    mrdoRegistro->setValue("CTeTextoCorto", txtTexto1.visible() ? trimmed(txtTexto1)
                                                                : mrdoRegistro->value("CTeCodigo"));
    if (txtTexto2.visible())
        mrdoRegistro->setValue("CTeTextoLargo",
                               txtTexto2.text().empty() ? Variant(Null{}) : trimmed(txtTexto2));
    for (ValueField& field : valueFields_)
        if (kindOf(field.label.tag) > 0) writeValueField(field);
    if (chkValorSiNo.visible()) mrdoRegistro->setValue("CTeSiNo1", chkValorSiNo.value());
    mrdoRegistro->setValue("Modificado", host_.utilities.FechaServidor(*mrdoCBase));
    if (mblnPorEmpresa) mrdoRegistro->setValue("CTeValor1", mintEmpresa);
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
