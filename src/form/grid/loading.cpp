#include <algorithm>

#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int leftCentred = 1;
/// More than any alignment code that there is.
constexpr double largestAlignment = 255;

/// Draws the grid again when the load ends, however it ends.
class RedrawOff {
  public:
    explicit RedrawOff(RecordGrid& grid) : grid_(grid) { grid_.setRedraw(false); }
    ~RedrawOff() { grid_.setRedraw(true); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

  private:
    RecordGrid& grid_;
};

}  // namespace

void frmCatalogador::CargarGrilla() {
    trap("CargarGrilla", [&] {
        if (!mstrModo.empty()) grdGrilla.clearRows();
        mstrSQL = listingStatement();
        const PointerDuring hourglass(surface());
        if (!mstrSQL.empty()) {
            openRecords();
            const RedrawOff quiet(grdGrilla);
            appendRows();
            mrdoRegistro->Close();
            ignoringErrors([&] { sortAsLoaded(); });
        }
        ignoringErrors([&] { SimularFiltrar(); });
        ignoringErrors([&] { sortAsRemembered(); });
        ignoringErrors([&] { PosicionarseGrilla(); });
    });
}

std::string frmCatalogador::listingStatement() {
    std::string sql = grdGrilla.tag;
    const std::string company = decimalText(mintEmpresa);
    mblnPorEmpresa = containsText(sql, "[prmIdEmpresa]", Compare::text);
    sql = replaceText(sql, mblnPorEmpresa ? "[prmIdEmpresa]" : "[prmIdEmpresa2]", company,
                      Compare::text);
    if (mlngIdVista == viewClassifications && containsText(sql, "[prm99]", Compare::text)) {
        std::string codes = BuscarTextoLista(1, mlngUsuario);
        if (codes.empty()) codes = "-1";
        sql = replaceText(sql, "[prm99]", codes, Compare::text);
        mstrListaNoMarcados = BuscarTextoLista(2, mlngUsuario);
    }
    return sql;
}

void frmCatalogador::appendRows() {
    for (; !mrdoRegistro->atEnd(); mrdoRegistro->MoveNext()) appendRow();
}

void frmCatalogador::appendRow() {
    const int row = grdGrilla.addRow();
    const int shown = std::min(mrdoRegistro->columnCount(), grdGrilla.columns());
    for (int column = 0; column < shown; ++column) {
        // A first row that holds Null must not take the check boxes away from the other rows.
        if (row == RecordGrid::fixedRows && column > 0 && isBit(column))
            grdGrilla.setColumnBoolean(column - 1, true);
        const Variant value = mrdoRegistro->value(column);
        if (value.isNull()) continue;
        if (column == 0)
            grdGrilla.setCode(row, trim(toText(value, host_.regional)));
        else
            setGridCell(row, column, value);
    }
    for (int column = 0; column < shown - 1; ++column) {
        const double code = grdGrilla.headerData(column).value_or(0);
        grdGrilla.setAlignment(
            row, column,
            code > 0 ? static_cast<int>(std::min(code, largestAlignment)) : leftCentred);
    }
}

bool frmCatalogador::isBit(int column) const {
    return mrdoRegistro->column(column).type == bitColumnType;
}

void frmCatalogador::setGridCell(int row, int column, const Variant& value) {
    if (isBit(column))
        setGridCheck(row, column, value);
    else
        grdGrilla.setText(row, column - 1, trim(toText(value, host_.regional)));
}

void frmCatalogador::setGridCheck(int row, int column, const Variant& value) {
    bool checked = toBoolean(value, host_.regional);
    if (mlngIdVista == viewClassifications) {
        const std::string code = toText(mrdoRegistro->value(0), host_.regional);
        checked = !containsText("," + mstrListaNoMarcados + ",", "," + code + ",", Compare::binary);
    }
    grdGrilla.setCheck(row, column - 1, checked ? CheckState::checked : CheckState::unchecked);
}

void frmCatalogador::sortAsLoaded() {
    if (!hasDataRows()) return;
    grdGrilla.select(RecordGrid::fixedRows, 0);
    grdGrilla.sort(0, sort_order::ascending);
}

void frmCatalogador::sortAsRemembered() {
    if (mintOrden == sort_order::none || mintColOrden >= grdGrilla.columns()) return;
    grdGrilla.select(0, mintColOrden);
    grdGrilla.sort(mintColOrden, mintOrden);
}

std::string frmCatalogador::BuscarTextoLista(std::int16_t lista, std::int32_t clave) {
    const PointerDuring hourglass(surface());
    const auto rows = mrdoCBase->OpenResultset(
        "Select * From genListas Where LisIdLista = " + decimalText(lista) +
        " And LisIDClave = " + decimalText(clave));
    std::string text;
    if (!rows->atEnd()) text = toTextOrEmpty(rows->value("LisLista"), host_.regional);
    rows->Close();
    return text;
}

}  // namespace catalogador
