#include "form/editing/user_lists.h"
#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// The statement with its tokens replaced by what the form holds.
SqlText withFieldValues(SqlText sql, const frmCatalogador& form, std::int32_t code,
                        const Regional& regional) {
    const auto put = [&](const std::string& token, const TokenValue& value) {
        sql.replace("[" + token + "]", SqlText::ofData(value.text), value.how);
    };
    put("Codigo", {decimalText(code)});
    for (const Field* field : form.fields()) put(field->key(), field->tokenValue(regional));
    put("prmIdEmpresa", {decimalText(form.mintEmpresa)});
    put("prm99", {decimalText(form.mlngUsuario)});
    return sql;
}

}  // namespace

bool frmCatalogador::ValidoCamposObligatorios() {
    return trap("ValidoCamposObligatorios", false, [&] {
        for (const Field* field : fields()) {
            if (!field->missing()) continue;
            field->control()->setProblem(ObtenerMensaje(message::required));
            setFocus(*field->control());
            return false;
        }
        return true;
    });
}

bool frmCatalogador::ValidarDatosNumericos() {
    return trap("ValidarDatosNumericos", false, [&] {
        for (const Field* field : fields()) {
            if (!field->noNumber(host_.regional)) continue;
            const std::string problem = replaceText(ObtenerMensaje(message::notNumeric), "[p1]",
                                                    field->label().caption(), Compare::binary);
            host_.messages.MostrarMensaje(problem, styleExclamation, mstrAppName);
            field->control()->setProblem(problem);
            setFocus(*field->control());
            return false;
        }
        return true;
    });
}

bool frmCatalogador::ValidarSQLDuplicados(const std::string& sql, std::int32_t codigo) {
    if (sql.empty()) return true;
    return trap("ValidarSQLDuplicados", false, [&] {
        records_.mstrSQL = withFieldValues(sql, *this, codigo, host_.regional);
        const PointerDuring hourglass(surface());
        return !records_.findsRow();
    });
}

bool frmCatalogador::ValorDuplicado(const std::string& campo, const std::string& valor,
                                    bool numerico) {
    if (valor.empty()) return false;
    const PointerDuring hourglass(surface());
    const SqlText value =
        SqlText::ofData(numerico ? numberForDatabase(valor, host_.regional) : valor);
    records_.mstrSQL =
        "Select CTeCodigo From genCodigoTexto Where CTeIDTipoVista = " + decimalText(mlngIdVista) +
        " And CTeCodigo <> " + decimalText(mlngIdDato) + " And CTe" + campo + " = " +
        (numerico ? value : "'" + value + "'");
    if (mblnPorEmpresa && mintEmpresa >= 1)
        records_.mstrSQL += " And CTeValor1 = " + decimalText(mintEmpresa);
    return records_.findsRow();
}

bool frmCatalogador::VerificarValDuplicados() {
    return trap("VerificarValDuplicados", false, [&] {
        for (const Field* field : fields()) {
            if (!field->unique()) continue;
            const auto value = field->uniqueValue();
            if (!value || !ValorDuplicado(field->key(), value->text, value->numeric)) continue;
            std::string caption = field->label().caption();
            LimpiarCaption(caption);
            std::string text = replaceText(ObtenerMensaje(message::duplicateValue), "[p1]",
                                           value->text, Compare::binary);
            text = replaceText(text, "[p2]", caption, Compare::binary);
            host_.messages.MostrarMensaje(text, styleExclamation, mstrAppName);
            field->control()->setProblem(text);
            setFocus(*field->control());
            return false;
        }
        return true;
    });
}

void frmCatalogador::LimpiarCaption(std::string& caption) const {
    if (!caption.empty() && caption.front() == '&') caption.erase(0, 1);
    if (!caption.empty() && caption.back() == ':') caption.pop_back();
}

bool frmCatalogador::ValidarClasificacion(std::int32_t codigo, const std::string& nombre) {
    return trap("ValidarClasificacion", true, [&] {
        std::string others;
        for (int row = RecordGrid::fixedRows; row < grdGrilla.rows(); ++row)
            if (!rowHasCode(grdGrilla, row, codigo, host_.regional))
                appendCode(others, grdGrilla.code(row));
        if (others.empty()) others = "-1";
        records_.mstrSQL = "Select ClaCodigo From genClasificacionesEntes Where Clacodigo <> " +
                           decimalText(codigo) + " And ClaNombre = '" + SqlText::ofData(nombre) +
                           "' And Not ClaCodigo In (" +
                           SqlText::ofData(others, SqlText::Kind::codes) + ")";
        const PointerDuring hourglass(surface());
        const bool taken = records_.findsRow();
        if (taken) {
            const std::string problem =
                replaceText(ObtenerMensaje(message::nameTaken), "[p]", nombre, Compare::binary);
            host_.messages.MostrarMensaje(problem, styleExclamation, mstrAppName);
            txtTexto1.setProblem(problem);
        }
        return taken;
    });
}

}  // namespace catalogador
