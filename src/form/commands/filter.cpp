#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {
constexpr int noFilterText = 233;
constexpr int filteredText = 245;
constexpr int filteredIcon = 17;
}  // namespace

void frmCatalogador::AccionFiltrar() {
    trap("AccionFiltrar", [&] {
        TextBox& box = commandBars.filterBox;
        if (!mblnFiltroAbierto) {
            commandBars.setChecked(action::filter, false);
            commandBars.setIcon(action::filter, action::filter);
            commandBars.setCaption(action::filter, ObtenerMensaje(noFilterText));
            grdGrilla.showAllRows();
            grdGrilla.bringIntoSight(grdGrilla.row());
            mblnSinFiltro = true;
            box.setVisible(true);
            setFocus(box);
            // What is typed now is another filter.
            box.select(0, lengthInCharacters(box.text()));
            mblnFiltroAbierto = true;
            return;
        }
        const std::string_view text = trim(box.text());
        if (text.empty()) {
            setFocus(box);
            return;
        }
        commandBars.setChecked(action::filter, true);
        commandBars.setIcon(action::filter, filteredIcon);
        commandBars.setCaption(action::filter, ObtenerMensaje(filteredText));
        std::string pattern = upperCase(text);
        FiltrarGrilla(pattern);
        mblnSinFiltro = false;
        showFirstMatch();
        box.setVisible(false);
        mblnFiltroAbierto = false;
    });
}

void frmCatalogador::showFirstMatch() {
    if (!mblnSinFiltro && grdGrilla.visibleRows() > 0) grdGrilla.setTopRow(grdGrilla.visibleRow(0));
}

void frmCatalogador::leaveInput() {
    TextBox& box = commandBars.filterBox;
    if (!box.hasFocus()) {
        if (commandBars.find(action::cancel)->enabled && editMayEnd())
            commandBars.execute(action::cancel);
        return;
    }
    box.setText("");
    mblnFiltroAbierto = false;
    box.setVisible(false);
}

}  // namespace catalogador
