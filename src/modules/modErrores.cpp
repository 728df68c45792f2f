#include "modules/modErrores.h"

#include <algorithm>
#include <iterator>

#include "modules/messages.h"
#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

struct ProcedureTask {
    std::string_view procedure;
    std::int32_t message;
};

constexpr ProcedureTask procedureTasks[] = {
    {"AccionCancelar", message::cannotCancelEdit},
    {"AccionEliminar", message::cannotDeleteRecord},
    {"AccionExportarDatosGrilla", message::cannotExportList},
    {"AccionF2", message::cannotOpenOtherScreen},
    {"AccionFiltrar", message::cannotFilterList},
    {"AccionGrabar", message::cannotSaveRecord},
    {"AccionImprimirDatosGrilla", message::cannotPrintList},
    {"AccionModificar", message::cannotOpenRecord},
    {"AccionNuevo", message::cannotStartRecord},
    {"AdjuntarIconos", message::cannotPrepareScreen},
    {"BuscarTextoLista", message::cannotShowList},
    {"CargarGrilla", message::cannotShowList},
    {"CargarTablasForaneas", message::cannotCheckUses},
    {"CargoComboXArray", message::cannotFillChoices},
    {"CargoComboXSQL", message::cannotFillChoices},
    {"CargoDatos", message::cannotOpenRecord},
    {"ChequearDatosTabla", message::cannotCheckUses},
    {"ChequearUltFechaModificado", message::cannotCheckRecord},
    {"CrearAceleradores", message::cannotPrepareScreen},
    {"CrearAcciones", message::cannotPrepareScreen},
    {"CrearContextMenues", message::cannotPrepareScreen},
    {"CrearRibbon", message::cannotPrepareScreen},
    {"EfectuarAccionTabla", message::cannotChangeUses},
    {"FiltrarGrilla", message::cannotFilterList},
    {"GrabarDatos", message::cannotSaveRecord},
    {"GuardarAnchoColumnas", message::cannotKeepWidths},
    {"InicializarControles", message::cannotPrepareScreen},
    {"InicializarForm", message::cannotPrepareScreen},
    {"InicializarGrilla", message::cannotPrepareScreen},
    {"LimpiarControles", message::cannotStartRecord},
    {"MostrarControles", message::cannotPrepareScreen},
    {"ObtenerDirInicial", message::cannotExportList},
    {"OpcionesRibbon", message::cannotPrepareScreen},
    {"PermitirEliminar", message::cannotCheckUses},
    {"PosicionLibreTablaReceta", message::cannotSaveRecord},
    {"PosicionarseGrilla", message::cannotFindRecord},
    {"PrepararImpresion", message::cannotPrintList},
    {"SetButtonState", message::cannotPrepareScreen},
    {"SetearFooter", message::cannotPrintList},
    {"SiguienteCampo", message::cannotReachNextField},
    {"SimularFiltrar", message::cannotFilterList},
    {"UbicoControles", message::cannotPrepareScreen},
    {"ValidarAccesoForm", message::cannotCheckAccess},
    {"ValidarClasificacion", message::cannotCheckRecord},
    {"ValidarDatosNumericos", message::cannotCheckRecord},
    {"ValidarSQLDuplicados", message::cannotCheckRecord},
    {"ValidoCamposObligatorios", message::cannotCheckRecord},
    {"VerificarValDuplicados", message::cannotCheckRecord},
    {"cmdBars_Execute", message::cannotRunCommand},
    {"cmdBars_Resize", message::cannotPrepareScreen},
    {"grdGrilla_AfterUserResize", message::cannotKeepWidths},
    {"grdGrilla_MouseUp", message::cannotUseList},
    {"picBackColor_Resize", message::cannotPrepareScreen},
};

}  // namespace

std::int32_t taskMessage(std::string_view procedure) {
    const auto* const found =
        std::find_if(std::begin(procedureTasks), std::end(procedureTasks),
                     [&](const ProcedureTask& task) { return task.procedure == procedure; });
    return found == std::end(procedureTasks) ? 0 : found->message;
}

void reportError(Host& host, std::int32_t message, const std::string& procedure,
                 const std::string& applicationName, const RuntimeError& error) {
    const std::string text =
        replaceText(ObtenerMensaje(message), "[p]", procedure, Compare::binary);
    const std::int32_t taskNumber = taskMessage(procedure);
    const std::string task =
        taskNumber == 0 ? std::string() : messageIfKnown(taskNumber).value_or("");
    currentError() = {error.number(), error.description()};
    host.messages.MostrarError(text, applicationName,
                               errorText(error.number(), error.description()), {}, task);
}

}  // namespace catalogador
