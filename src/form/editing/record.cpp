#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

bool frmCatalogador::CargoDatos(std::int32_t codigo) {
    return trap("CargoDatos", false, [&] {
        const PointerDuring hourglass(surface());
        mstrSQL =
            "Select * From genCodigoTexto  Where CTeIDTipoVista =" + decimalText(mlngIdVista) +
            " And CteCodigo =" + decimalText(codigo);
        openRecords();
        if (!mrdoRegistro->atEnd()) loadFields(codigo);
        mdatModificado = stampOfRecord();
        mrdoRegistro->Close();
        return true;
    });
}

void frmCatalogador::loadFields(std::int32_t codigo) {
    const auto loadText = [&](const TextField& field, const char* readAs) {
        if (kindOf(field.label.tag) <= 0 || mrdoRegistro->value(field.column).isNull()) return;
        const std::string text = toText(mrdoRegistro->value(readAs), host_.regional);
        field.text.setText(std::string(trim(text)));
    };
    loadText(textFields_[0], "CTETextoCorto");
    loadText(textFields_[1], "CTeTextoLargo");
    for (ValueField& field : valueFields_) loadValueField(field);
    loadYesNo(codigo);
}

void frmCatalogador::loadValueField(ValueField& field) {
    const int kind = kindOf(field.label.tag);
    const Variant value = mrdoRegistro->value(field.column);
    if (kind <= 0 || value.isNull()) return;
    if (kind == 1)
        field.text.setText(toText(value, host_.regional));
    else if (kind == 2)
        field.combo.setListIndex(field.combo.findItemData(toLong(value, host_.regional)));
    else
        field.check.setValue(toInteger(value, host_.regional));
}

void frmCatalogador::loadYesNo(std::int32_t codigo) {
    if (mlngIdVista == viewClassifications) {
        const bool unticked = containsText("," + mstrListaNoMarcados + ",",
                                           "," + decimalText(codigo) + ",", Compare::binary);
        chkValorSiNo.setValue(unticked ? 0 : 1);
    } else if (kindOf(chkValorSiNo.tag) > 0) {
        const Variant value = mrdoRegistro->value("CTeSiNo1");
        chkValorSiNo.setValue(!value.isNull() && toBoolean(value, host_.regional) ? 1 : 0);
    }
}

Date frmCatalogador::stampOfRecord() const {
    const Variant stamp = mrdoRegistro->value("Modificado");
    if (stamp.isNull()) return Date{1900, 1, 1};
    if (const Date* date = stamp.as<Date>()) return *date;
    if (const std::string* text = stamp.as<std::string>())
        if (const auto date = dateFromIso(*text)) return *date;
    throw RuntimeError(error_number::typeMismatch, "Type mismatch");
}

void frmCatalogador::LimpiarControles() {
    trap("LimpiarControles", [&] {
        for (TextField& field : textFields_) field.text.setText("");
        for (ValueField& field : valueFields_) field.text.setText("");
        for (ValueField& field : valueFields_) field.check.setValue(0);
        chkValorSiNo.setValue(mblnSiNoDatosCombo ? 1 : 0);
        for (ValueField& field : valueFields_) field.combo.setListIndex(-1);
    });
}

}  // namespace catalogador
