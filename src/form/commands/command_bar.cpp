#include "form/frmCatalogador.h"
#include "modules/messages.h"
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
    std::int32_t caption;
    std::int32_t tooltip;
    std::int32_t description;
    std::int32_t category;
};

constexpr std::array<ActionTexts, 13> actionTexts{{
    {action::editMenu, message::editCaption, 0, 0, 0},
    {action::helpMenu, message::helpMenuCaption, 0, 0, 0},
    {action::create, message::createCaption, message::createTooltip, message::createDescription,
     message::recordCategory},
    {action::modify, message::modifyCaption, message::modifyTooltip, message::modifyDescription,
     message::recordCategory},
    {action::remove, message::deleteCaption, message::deleteTooltip, message::deleteDescription,
     message::recordCategory},
    {action::save, message::saveCaption, message::saveTooltip, message::saveDescription,
     message::recordCategory},
    {action::cancel, message::cancelCaption, message::cancelTooltip, message::cancelDescription,
     message::recordCategory},
    {action::help, message::helpCaption, message::helpTooltip, message::helpDescription,
     message::helpCategory},
    {action::filter, message::filterCaption, message::filterTooltip, message::filterDescription,
     message::filterCategory},
    {action::filterBox, 0, 0, message::filterDescription, message::filterCategory},
    {action::application, message::applicationCaption, message::applicationTooltip,
     message::applicationDescription, message::applicationCategory},
    {action::exportRows, message::exportCaption, message::exportTooltip, message::exportDescription,
     message::exportCategory},
    {action::printRows, message::printCaption, message::printTooltip, message::printDescription,
     message::printCategory},
}};

struct AcceleratorText {
    std::int32_t letter;
    int actionId;
};

constexpr std::array<AcceleratorText, 5> acceleratorTexts{{
    {message::createLetter, action::create},
    {message::modifyLetter, action::modify},
    {message::deleteLetter, action::remove},
    {message::saveLetter, action::save},
    {message::cancelLetter, action::cancel},
}};

/// Commands that stand in no menu; the letters of the language come first.
constexpr std::array<KeyBinding, 3> furtherBindings{{
    {bindingControl, 'F', action::filter},
    {bindingControl, 'P', action::printRows},
    {bindingControl | bindingShift, 'S', action::exportRows},
}};

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
        const auto text = [](std::int32_t number) {
            return number == 0 ? std::string() : ObtenerMensaje(number);
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
        commandBars.groupCaption = ObtenerMensaje(message::groupCaption);
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
            const std::string letter = ObtenerMensaje(entry.letter);
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
