#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/typed_number.h"

namespace catalogador {

namespace {

std::string trimmed(const TextBox& box) {
    return std::string(trim(box.text()));
}

constexpr std::int32_t notNumericMessage = 106;
constexpr std::int32_t duplicateMessage = 107;
constexpr std::int32_t nameTakenMessage = 301;

}  // namespace

std::string frmCatalogador::numberForDatabase(const std::string& typed) const {
    // Statements and columns know one way of writing numbers, whatever the user's is.
    const auto number = typedNumber(typed, host_.regional);
    if (!number) throw RuntimeError(error_number::typeMismatch, "Type mismatch");
    return number->text;
}

bool frmCatalogador::ValidoCamposObligatorios() {
    return trap("ValidoCamposObligatorios", false, [&] {
        Control* missing = missingRequiredField();
        if (missing != nullptr) {
            missing->setProblem(ObtenerMensaje(requiredMessage));
            setFocus(*missing);
        }
        return missing == nullptr;
    });
}

Control* frmCatalogador::missingRequiredField() {
    // Blanks alone are a value for the first text but none for the others.
    if (required(0) && txtTexto1.text().empty()) return &txtTexto1;
    if (required(1) && trimmed(txtTexto2).empty()) return &txtTexto2;
    for (ValueField& field : valueFields_) {
        if (!required(field.index)) continue;
        const int kind = kindOf(field.label.tag);
        if (kind == 1 && trimmed(field.text).empty()) return &field.text;
        if (kind == 2 && field.combo.listIndex() == -1) return &field.combo;
    }
    return nullptr;
}

bool frmCatalogador::ValidarDatosNumericos() {
    return trap("ValidarDatosNumericos", false, [&] {
        for (ValueField& field : valueFields_) {
            const std::string text = trimmed(field.text);
            if (kindOf(field.label.tag) != 1 || text.empty() ||
                isNumeric(Variant(text), host_.regional))
                continue;
            const std::string problem = replaceText(ObtenerMensaje(notNumericMessage), "[p1]",
                                                    field.label.caption(), Compare::binary);
            host_.messages.MostrarMensaje(problem, styleExclamation, mstrAppName);
            field.text.setProblem(problem);
            setFocus(field.text);
            return false;
        }
        return true;
    });
}

bool frmCatalogador::ValidarSQLDuplicados(const std::string& sql, std::int32_t codigo) {
    if (sql.empty()) return true;
    return trap("ValidarSQLDuplicados", false, [&] {
        mstrSQL = withFieldValues(sql, codigo);
        const PointerDuring hourglass(surface());
        openRecords();
        const bool kept = mrdoRegistro->atEnd();
        mrdoRegistro->Close();
        return kept;
    });
}

SqlText frmCatalogador::withFieldValues(SqlText sql, std::int32_t codigo) {
    const auto put = [&](const char* token, const std::string& value) {
        sql.replace(token, SqlText::ofData(value), Compare::text);
    };
    put("[Codigo]", decimalText(codigo));
    put("[TextoCorto]", trimmed(txtTexto1));
    put("[TextoLargo]", trimmed(txtTexto2));
    for (ValueField& field : valueFields_) replaceValueToken(sql, field);
    put("[ValorSiNo]", decimalText(chkValorSiNo.value()));
    put("[prmIdEmpresa]", decimalText(mintEmpresa));
    put("[prm99]", decimalText(mlngUsuario));
    return sql;
}

void frmCatalogador::replaceValueToken(SqlText& sql, ValueField& field) {
    const std::string token = "[" + std::string(field.key) + "]";
    const int kind = kindOf(field.label.tag);
    if (kind == 2 && field.combo.listIndex() != -1) {
        const std::int32_t code = field.combo.itemData(field.combo.listIndex());
        sql.replace(token, SqlText::ofData(decimalText(code)), Compare::binary);
        return;
    }
    std::string value = "0";
    if (kind == 1) {
        if (const auto number = typedNumber(field.text.text(), host_.regional))
            value = number->text;
    } else if (kind != 2) {
        value = decimalText(field.check.value());
    }
    sql.replace(token, SqlText::ofData(value), Compare::text);
}

bool frmCatalogador::ValorDuplicado(const std::string& campo, const std::string& valor,
                                    bool numerico) {
    if (valor.empty()) return false;
    const PointerDuring hourglass(surface());
    const SqlText value = SqlText::ofData(numerico ? numberForDatabase(valor) : valor);
    mstrSQL =
        "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
        " And CTeCodigo <> " + decimalText(mlngIdDato) + " And CTe" + campo + " = " +
        (numerico ? value : "'" + value + "'");
    if (mblnPorEmpresa && mintEmpresa >= 1)
        mstrSQL += " And CTeValor1 = " + decimalText(mintEmpresa);
    openRecords();
    const bool duplicated = !mrdoRegistro->atEnd();
    mrdoRegistro->Close();
    return duplicated;
}

bool frmCatalogador::VerificarValDuplicados() {
    return trap("VerificarValDuplicados", false, [&] {
        for (TextField& field : textFields_)
            if (unique(field.index) &&
                duplicateReported(field.key, trimmed(field.text), false, field.label, field.text))
                return false;
        for (ValueField& field : valueFields_)
            if (unique(field.index) && duplicateValueReported(field)) return false;
        return true;
    });
}

bool frmCatalogador::duplicateValueReported(ValueField& field) {
    if (field.label.tag == "1")
        return duplicateReported(field.key, trimmed(field.text), true, field.label, field.text);
    if (field.label.tag != "2") return false;
    const int index = field.combo.listIndex();
    const std::string value = index == -1 ? "" : decimalText(field.combo.itemData(index));
    return duplicateReported(field.key, value, true, field.label, field.combo);
}

bool frmCatalogador::duplicateReported(const std::string& campo, const std::string& valor,
                                       bool numerico, const Label& label, Control& control) {
    if (!ValorDuplicado(campo, valor, numerico)) return false;
    std::string caption = label.caption();
    LimpiarCaption(caption);
    std::string text =
        replaceText(ObtenerMensaje(duplicateMessage), "[p1]", valor, Compare::binary);
    text = replaceText(text, "[p2]", caption, Compare::binary);
    host_.messages.MostrarMensaje(text, styleExclamation, mstrAppName);
    control.setProblem(text);
    setFocus(control);
    return true;
}

void frmCatalogador::LimpiarCaption(std::string& caption) const {
    if (!caption.empty() && caption.front() == '&') caption.erase(0, 1);
    if (!caption.empty() && caption.back() == ':') caption.pop_back();
}

bool frmCatalogador::ValidarClasificacion(std::int32_t codigo, const std::string& nombre) {
    return trap("ValidarClasificacion", true, [&] {
        std::string others;
        for (int row = RecordGrid::fixedRows; row < grdGrilla.rows(); ++row) {
            if (rowHasCode(row, codigo)) continue;
            if (!others.empty()) others += ",";
            others += grdGrilla.code(row);
        }
        if (others.empty()) others = "-1";
        mstrSQL = "Select ClaCodigo From genClasificacionesEntes Where Clacodigo <> " +
                  decimalText(codigo) + " And ClaNombre = '" + SqlText::ofData(nombre) +
                  "' And Not ClaCodigo In (" + SqlText::ofData(others, SqlText::Kind::codes) + ")";
        const PointerDuring hourglass(surface());
        openRecords();
        const bool taken = !mrdoRegistro->atEnd();
        mrdoRegistro->Close();
        if (taken) {
            const std::string problem =
                replaceText(ObtenerMensaje(nameTakenMessage), "[p]", nombre, Compare::binary);
            host_.messages.MostrarMensaje(problem, styleExclamation, mstrAppName);
            txtTexto1.setProblem(problem);
        }
        return taken;
    });
}

}  // namespace catalogador
