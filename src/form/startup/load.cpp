#include <algorithm>

#include "form/frmCatalogador.h"
#include "form/grid/list_rows.h"
#include "modules/modIds.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr float widestForm = 1.0e6F;
constexpr int minimumWidth = 5000;
constexpr int minimumHeight = 4000;

void centreOnScreen(Window& window) {
    const Rect screen = window.surface().monitorOf(window);
    const Rect& place = window.place();
    window.move({screen.left + (screen.width - place.width) / 2,
                 screen.top + (screen.height - place.height) / 2, place.width, place.height});
}

}  // namespace

void frmCatalogador::Form_Load() {
    // The second character of "0.5" as it is written here is the decimal separator.
    const std::string half = toText(Variant(0.5), host_.regional);
    mstrSeparadorDecimal = leftCharacters(std::string_view(half).substr(1), 1);
    mstrSeparadorMiles = mstrSeparadorDecimal == "." ? "," : ".";
    CrearAcciones();
    CrearRibbon();
    CrearContextMenues();
    CrearAceleradores();
    AdjuntarIconos();
    InicializarForm();
    MostrarControles();
    UbicoControles();
    OpcionesRibbon();
    ignoringErrors([&] { AjustarAnchoForm(); });
    ignoringErrors([&] { SetButtonState(true); });
    ignoringErrors([&] { centreOnScreen(*this); });
    ignoringErrors([&] { commandBars.recalcLayout(); });
    ignoringErrors([&] { LimpiarControles(); });
    ignoringErrors([&] { openAtStart(); });
}

void frmCatalogador::openAtStart() {
    if (mlngIdDato >= 1) {
        // A code that is not in the list must not open the record that happens to be selected.
        const int row = grdGrilla.row();
        if (row >= RecordGrid::fixedRows && rowHasCode(grdGrilla, row, mlngIdDato, host_.regional))
            AccionModificar();
        if (browsing()) mlngIdDato = 0;
    } else if (mlngIdDato == -1) {
        txtTexto1.setText(mstrValorTexto1);
        AccionNuevo();
    }
}

void frmCatalogador::InicializarForm() {
    trap("InicializarForm", [&] {
        picBackColor.setBackColor(panelColor);
        mstrModo = "0";
        mblnAnchoCambiado = false;
        mblnSinFiltro = true;
        mlngIdUltimo = 0;
        const PointerDuring hourglass(surface());
        records_.mstrSQL =
            "Select * From Catalogador Where ABMIDFormVista = " + decimalText(mlngIdVista);
        records_.open();
        viewHasMetadata_ = !records_.mrdoRegistro->atEnd();
        if (viewHasMetadata_) {
            readViewRow();
            InicializarGrilla();
        }
        records_.mrdoRegistro->Close();
    });
}

void frmCatalogador::readViewRow() {
    const std::string title = records_.textOrEmpty("ABMTitulo");
    setCaption(title);
    mstrAppName = title;
    gstrNombreVista = records_.textOrEmpty("ABMNombreVista");
    const float width = toSingle(records_.mrdoRegistro->value("ABMAnchoForm"), host_.regional);
    setWidth(static_cast<int>(std::clamp(width, 0.0F, widestForm)));
    mstrSQLDuplicados =
        host_.utilities.TextoDe(records_.mrdoRegistro->value("ABMSQLValidarDuplicados"));
    const Variant help = records_.mrdoRegistro->value("ABMIDAyuda");
    mintIdAyuda = help.isNull() ? std::int16_t{0} : toInteger(help, host_.regional);
}

void frmCatalogador::Form_QueryUnload() {
    if (mlngIdVista == viewClassifications) GrabarListaGrilla();
}

void frmCatalogador::Form_Unload() {
    if (mblnAnchoCambiado) GuardarAnchoColumnas();
    records_.mrdoRegistro.reset();
    mrdoCBase = nullptr;
}

void frmCatalogador::Form_Resize() {
    if (state() == WindowState::minimized) return;
    const Rect now = place();
    move({now.left, now.top, std::max(now.width, minimumWidth),
          std::max(now.height, minimumHeight)});
}

}  // namespace catalogador
