#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/messages.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "runtime/base_letters.h"
#include "runtime/convert.h"
#include "runtime/like.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int filteredIcon = 17;

/// Whether the filter tells "Perú" from "peru": the setting FiltroSinAcentos.
Accents accentsOfFilter(Host& host) {
    const Variant setting = host.utilities.LeerConfiguracion("VEM04", "FiltroSinAcentos");
    return leadingNumber(toTextOrEmpty(setting, host.regional)) == 1 ? Accents::ignored
                                                                     : Accents::count;
}

}  // namespace

void frmCatalogador::AccionFiltrar() {
    trap("AccionFiltrar", [&] {
        TextBox& box = commandBars.filterBox;
        if (!mblnFiltroAbierto) {
            commandBars.setChecked(action::filter, false);
            commandBars.setIcon(action::filter, action::filter);
            commandBars.setCaption(action::filter, ObtenerMensaje(message::filterTooltip));
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
        commandBars.setCaption(action::filter, ObtenerMensaje(message::filteredCaption));
        std::string pattern = upperCase(text);
        FiltrarGrilla(pattern);
        mblnSinFiltro = false;
        showFirstMatch(grdGrilla);
        box.setVisible(false);
        mblnFiltroAbierto = false;
    });
}

void frmCatalogador::FiltrarGrilla(std::string& texto) {
    trap("FiltrarGrilla", [&] {
        const Accents accents = accentsOfFilter(host_);
        if (accents == Accents::ignored) texto = withoutAccents(texto);
        texto = "*" + upperCase(texto) + "*";
        // Only a row that is tested shows that a pattern is none.
        if (hasDataRows(grdGrilla) && grdGrilla.columns() > 0)
            grdGrilla.filter(LikePattern(texto), accents);
    });
}

void frmCatalogador::SimularFiltrar() {
    trap("SimularFiltrar", [&] {
        if (mblnSinFiltro) return;
        const std::string_view text = trim(commandBars.filterBox.text());
        mblnSinFiltro = true;
        if (text.empty()) return;
        // The filter is applied as if its text had just been entered.
        mblnFiltroAbierto = true;
        AccionFiltrar();
    });
}

}  // namespace catalogador
