#include "modules/modErrores.h"

#include <algorithm>
#include <iterator>

#include "modules/modLenguaje.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

namespace task {
constexpr std::int32_t showList = 520;
constexpr std::int32_t openRecord = 521;
constexpr std::int32_t startRecord = 522;
constexpr std::int32_t saveRecord = 523;
constexpr std::int32_t checkRecord = 524;
constexpr std::int32_t deleteRecord = 525;
constexpr std::int32_t checkUses = 526;
constexpr std::int32_t changeUses = 527;
constexpr std::int32_t filterList = 528;
constexpr std::int32_t findRecord = 529;
constexpr std::int32_t keepWidths = 530;
constexpr std::int32_t exportList = 531;
constexpr std::int32_t printList = 532;
constexpr std::int32_t openOtherScreen = 533;
constexpr std::int32_t fillChoices = 534;
constexpr std::int32_t prepareScreen = 535;
constexpr std::int32_t checkAccess = 536;
constexpr std::int32_t cancelEdit = 537;
constexpr std::int32_t runCommand = 538;
constexpr std::int32_t useList = 539;
constexpr std::int32_t nextField = 540;
}  // namespace task

struct ProcedureTask {
    std::string_view procedure;
    std::int32_t message;
};

constexpr ProcedureTask procedureTasks[] = {
    {"AccionCancelar", task::cancelEdit},
    {"AccionEliminar", task::deleteRecord},
    {"AccionExportarDatosGrilla", task::exportList},
    {"AccionF2", task::openOtherScreen},
    {"AccionFiltrar", task::filterList},
    {"AccionGrabar", task::saveRecord},
    {"AccionImprimirDatosGrilla", task::printList},
    {"AccionModificar", task::openRecord},
    {"AccionNuevo", task::startRecord},
    {"AdjuntarIconos", task::prepareScreen},
    {"BuscarTextoLista", task::showList},
    {"CargarGrilla", task::showList},
    {"CargarTablasForaneas", task::checkUses},
    {"CargoComboXArray", task::fillChoices},
    {"CargoComboXSQL", task::fillChoices},
    {"CargoDatos", task::openRecord},
    {"ChequearDatosTabla", task::checkUses},
    {"ChequearUltFechaModificado", task::checkRecord},
    {"CrearAceleradores", task::prepareScreen},
    {"CrearAcciones", task::prepareScreen},
    {"CrearContextMenues", task::prepareScreen},
    {"CrearRibbon", task::prepareScreen},
    {"EfectuarAccionTabla", task::changeUses},
    {"FiltrarGrilla", task::filterList},
    {"GrabarDatos", task::saveRecord},
    {"GuardarAnchoColumnas", task::keepWidths},
    {"InicializarControles", task::prepareScreen},
    {"InicializarForm", task::prepareScreen},
    {"InicializarGrilla", task::prepareScreen},
    {"LimpiarControles", task::startRecord},
    {"MostrarControles", task::prepareScreen},
    {"ObtenerDirInicial", task::exportList},
    {"OpcionesRibbon", task::prepareScreen},
    {"PermitirEliminar", task::checkUses},
    {"PosicionLibreTablaReceta", task::saveRecord},
    {"PosicionarseGrilla", task::findRecord},
    {"PrepararImpresion", task::printList},
    {"SetButtonState", task::prepareScreen},
    {"SetearFooter", task::printList},
    {"SiguienteCampo", task::nextField},
    {"SimularFiltrar", task::filterList},
    {"UbicoControles", task::prepareScreen},
    {"ValidarAccesoForm", task::checkAccess},
    {"ValidarClasificacion", task::checkRecord},
    {"ValidarDatosNumericos", task::checkRecord},
    {"ValidarSQLDuplicados", task::checkRecord},
    {"ValidoCamposObligatorios", task::checkRecord},
    {"VerificarValDuplicados", task::checkRecord},
    {"cmdBars_Execute", task::runCommand},
    {"cmdBars_Resize", task::prepareScreen},
    {"grdGrilla_AfterUserResize", task::keepWidths},
    {"grdGrilla_MouseUp", task::useList},
    {"picBackColor_Resize", task::prepareScreen},
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
