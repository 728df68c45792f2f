#include "form/frmCatalogador.h"
#include "modules/modIds.h"
#include "modules/modLenguaje.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador {

namespace {

/// Message numbers of an action's texts; 0 stands for the empty text.
struct ActionTexts {
    int id;
    int caption;
    int tooltip;
    int description;
    int category;
};

constexpr std::array<ActionTexts, 13> actionTexts{{
    {action::editMenu, 200, 0, 0, 0},
    {action::helpMenu, 204, 0, 0, 0},
    {action::create, 208, 209, 210, 211},
    {action::modify, 212, 213, 214, 211},
    {action::remove, 215, 216, 217, 211},
    {action::save, 218, 219, 220, 211},
    {action::cancel, 221, 222, 223, 211},
    {action::help, 224, 225, 226, 227},
    {action::filter, 232, 233, 234, 235},
    {action::filterBox, 0, 0, 234, 235},
    {action::application, 228, 229, 230, 231},
    {action::exportRows, 237, 238, 239, 240},
    {action::printRows, 241, 242, 243, 244},
}};

struct AcceleratorText {
    int message;
    int actionId;
};

constexpr std::array<AcceleratorText, 5> acceleratorTexts{{
    {246, action::create},
    {247, action::modify},
    {248, action::remove},
    {249, action::save},
    {250, action::cancel},
}};

/// Commands that stand in no menu; the letters of the language come first.
constexpr std::array<KeyBinding, 3> furtherBindings{{
    {bindingControl, 'F', action::filter},
    {bindingControl, 'P', action::printRows},
    {bindingControl | bindingShift, 'S', action::exportRows},
}};

constexpr int groupCaptionText = 236;

std::vector<ActionPlace> editEntries() {
    return {{action::create},
            {action::modify},
            {action::remove},
            {action::save, true},
            {action::cancel}};
}

/// The page of that id, or the contents for an id below 1.
void showHelp(Window& window, clsUtilidades& utilities, std::int16_t page) {
    const bool general = page < 1;
    utilities.MostrarAyuda(window, general ? help_command::contents : help_command::page,
                           general ? 0 : page);
}

}  // namespace

void frmCatalogador::CrearAcciones() {
    trap("CrearAcciones", [&] {
        const auto text = [](int message) {
            return message == 0 ? std::string() : ObtenerMensaje(message);
        };
        for (const ActionTexts& entry : actionTexts)
            commandBars.addAction(entry.id, text(entry.caption), text(entry.tooltip),
                                  text(entry.description), text(entry.category));
    });
}

void frmCatalogador::CrearRibbon() {
    trap("CrearRibbon", [&] {
        commandBars.title = "The Ribbon";
        commandBars.menus = {{1, "", action::editMenu, editEntries()},
                             {2, "", action::helpMenu, {{action::help}}}};
        commandBars.setIcon(action::helpMenu, action::help);
        commandBars.toolbarName = "Standar";
        commandBars.toolbar = {{action::create, false, true},
                               {action::modify, false, true},
                               {action::remove},
                               {action::save, true},
                               {action::cancel},
                               {action::filter, true},
                               {action::filterBox}};
        commandBars.groupCaption = ObtenerMensaje(groupCaptionText);
    });
}

void frmCatalogador::CrearContextMenues() {
    trap("CrearContextMenues", [&] {
        commandBars.contextMenus = {{gridContextMenu, "Context Menu", 0, editEntries()}};
    });
}

void frmCatalogador::CrearAceleradores() {
    trap("CrearAceleradores", [&] {
        for (const AcceleratorText& entry : acceleratorTexts) {
            const std::string letter = ObtenerMensaje(entry.message);
            if (letter.empty()) continue;
            std::size_t first = 0;
            commandBars.bindings.push_back(
                {bindingControl, static_cast<int>(nextCharacter(letter, first)), entry.actionId});
        }
        commandBars.bindings.push_back({0, key::f1, action::help});
        for (const KeyBinding& binding : furtherBindings) commandBars.bindIfFree(binding);
    });
}

void frmCatalogador::AdjuntarIconos() {
    trap("AdjuntarIconos", [&] {
        // Icon numbers are action ids; only the help menu borrows the one of its entry.
        for (const ActionTexts& entry : actionTexts)
            if (entry.id != action::helpMenu) commandBars.setIcon(entry.id, entry.id);
    });
}

void frmCatalogador::OpcionesRibbon() {
    trap("OpcionesRibbon", [&] {
        commandBars.systemIcon = action::application;
        commandBars.quickAccess = {{action::exportRows}, {action::printRows}};
        commandBars.themeFile =
            host_.utilities.CarpetaAplicacion() + R"(\Complementos\Misc\Office2007Silver.dll)";
    });
}

void frmCatalogador::cmdBars_Execute(int id) {
    // Errors that a command lets through, such as a help call that fails, must not end the host.
    trap("cmdBars_Execute", [&] {
        switch (id) {
            case action::create:
                return AccionNuevo();
            case action::modify:
                return AccionModificar();
            case action::remove:
                return AccionEliminar();
            case action::save:
                return AccionGrabar();
            case action::cancel:
                return AccionCancelar();
            case action::help:
                return showHelp(*this, host_.utilities, mintIdAyuda);
            case action::filter:
            case action::filterBox:
                return AccionFiltrar();
            case action::exportRows:
                return AccionExportarDatosGrilla();
            case action::printRows:
                return AccionImprimirDatosGrilla();
            default:
                return;
        }
    });
}

void frmCatalogador::cmdBars_Resize() {
    trap("cmdBars_Resize", [&] {
        picBackColor.move(surface().clientRect(*this));
        picBackColor_Resize();
    });
}

}  // namespace catalogador
