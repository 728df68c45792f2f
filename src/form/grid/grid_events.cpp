#include "form/commands/input.h"
#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/modIds.h"
#include "platform/controls/keys.h"

namespace catalogador {

void wireList(frmCatalogador& form) {
    RecordGrid& grid = form.grdGrilla;
    grid.onDoubleClick = [&form](int row, int) {
        if (row >= RecordGrid::fixedRows) form.AccionModificar();
    };
    grid.onKeyDown = [&form](int& keyCode, int modifiers) {
        form.grdGrilla_KeyDown(keyCode);
        otherKeyInList(form, keyCode, modifiers);
    };
    grid.onKeyPress = [&form](char32_t& character) {
        if (character == key::enter)
            form.AccionModificar();
        else
            characterInList(form, character);
    };
    grid.onMouseUp = [&form](MouseButton button, int row, int column) {
        form.grdGrilla_MouseUp(button, row, column);
    };
    grid.onSort = [&form](int column, int order) { form.grdGrilla_Sort(column, order); };
    grid.onAfterUserResize = [&form](int, int) { form.grdGrilla_AfterUserResize(); };
    grid.onGotFocus = [&grid] {
        if (hasDataRows(grid) && grid.row() <= RecordGrid::fixedRows)
            grid.select(RecordGrid::fixedRows, 0);
    };
}

void showContextMenu(Window& window) {
    if (const Menu* menu = window.commandBars.contextMenu(gridContextMenu))
        window.surface().showMenu(window, *menu);
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
            showContextMenu(*this);
            break;
        default:
            break;
    }
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
            showContextMenu(*this);
        }
    });
}

void frmCatalogador::grdGrilla_Sort(int column, int order) {
    if (column >= grdGrilla.listColumns()) {
        grdGrilla.setSortIndicator(sort_indicator::none);
        return;
    }
    const std::string selected = selectedCode(grdGrilla);
    grdGrilla.sort(column, order);
    if (grdGrilla.sortIndicator() != sort_indicator::arrow)
        grdGrilla.setSortIndicator(sort_indicator::arrow);
    mintColOrden = static_cast<std::int16_t>(column);
    mintOrden = static_cast<std::int16_t>(order);
    // The user goes on with the record that was selected, wherever the sort puts it.
    selectCode(grdGrilla, selected);
}

}  // namespace catalogador
