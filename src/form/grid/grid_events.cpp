#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
constexpr int indicatorArrow = 5;
constexpr int indicatorNone = 1;
}  // namespace

void frmCatalogador::wireGrid() {
    grdGrilla.onDoubleClick = [this](int row, int) {
        if (row >= RecordGrid::fixedRows) AccionModificar();
    };
    grdGrilla.onKeyDown = [this](int& keyCode, int modifiers) {
        grdGrilla_KeyDown(keyCode);
        otherKeyInList(keyCode, modifiers);
    };
    grdGrilla.onKeyPress = [this](char32_t& character) {
        if (character == key::enter)
            AccionModificar();
        else
            characterInList(character);
    };
    grdGrilla.onMouseUp = [this](MouseButton button, int row, int column) {
        grdGrilla_MouseUp(button, row, column);
    };
    grdGrilla.onSort = [this](int column, int order) { grdGrilla_Sort(column, order); };
    grdGrilla.onAfterUserResize = [this](int, int) { grdGrilla_AfterUserResize(); };
    grdGrilla.onGotFocus = [this] {
        if (hasDataRows() && grdGrilla.row() <= RecordGrid::fixedRows)
            grdGrilla.select(RecordGrid::fixedRows, 0);
    };
}

void frmCatalogador::grdGrilla_KeyDown(int& keyCode) {
    switch (keyCode) {
        case key::deleteKey:
            // While a record is being edited the delete action is disabled, and so is its key.
            commandBars.execute(action::remove);
            break;
        case key::space:
            if (mblnSinFiltro) AccionModificar();
            break;
        case key::menu:
            showContextMenu();
            break;
        default:
            break;
    }
}

void frmCatalogador::showContextMenu() {
    if (const Menu* menu = commandBars.contextMenu(gridContextMenu))
        surface().showMenu(*this, *menu);
}

void frmCatalogador::grdGrilla_MouseUp(MouseButton button, int row, int column) {
    trap("grdGrilla_MouseUp", [&] {
        if (row < RecordGrid::fixedRows) {
            if (column < 0 || column >= grdGrilla.columns()) return;
            const double data = grdGrilla.headerData(column).value_or(0);
            grdGrilla_Sort(column, data == 0 ? sort_order::ascending : sort_order::descending);
            grdGrilla.setHeaderData(column, 1 - data);
        } else if (button == MouseButton::right) {
            if (row < grdGrilla.rows()) grdGrilla.select(row, 0);
            showContextMenu();
        }
    });
}

void frmCatalogador::grdGrilla_Sort(int column, int order) {
    if (column >= grdGrilla.listColumns()) {
        grdGrilla.setSortIndicator(indicatorNone);
        return;
    }
    const int row = grdGrilla.row();
    const std::string selected(row >= RecordGrid::fixedRows ? grdGrilla.code(row) : "");
    grdGrilla.sort(column, order);
    if (grdGrilla.sortIndicator() != indicatorArrow) grdGrilla.setSortIndicator(indicatorArrow);
    mintColOrden = static_cast<std::int16_t>(column);
    mintOrden = static_cast<std::int16_t>(order);
    // The user goes on with the record that was selected, wherever the sort puts it.
    selectCode(selected);
}

void frmCatalogador::selectCode(const std::string& code) {
    const int at = code.empty() ? 0 : grdGrilla.findCode(code);
    if (at == 0) return;
    grdGrilla.select(at, 0);
    if (!grdGrilla.rowIsShown(at)) grdGrilla.setTopRow(at);
}

void frmCatalogador::grdGrilla_AfterUserResize() {
    trap("grdGrilla_AfterUserResize", [&] {
        std::string widths = decimalText(grdGrilla.columnWidth(0));
        for (int column = 1; column < grdGrilla.listColumns(); ++column)
            widths += "|" + decimalText(grdGrilla.columnWidth(column));
        mstrAnchoColumnas = widths;
        mblnAnchoCambiado = true;
    });
}

}  // namespace catalogador
