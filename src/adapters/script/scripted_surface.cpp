#include "adapters/script/scripted_surface.h"

#include <algorithm>

#include "form/frmCatalogador.h"
#include "modules/modLenguaje.h"

namespace catalogador {

void ScriptedSurface::formOpening(frmCatalogador& form) {
    forms_.push_back(&form);
    transcript().print({{"event", "opened"},
                        {"view", form.mlngIdVista},
                        {"depth", depth()},
                        {"language", currentLanguageLibrary()}});
}

void ScriptedSurface::formClosed(frmCatalogador& form) {
    transcript().print({{"event", "closed"},
                        {"view", form.mlngIdVista},
                        {"depth", depth()},
                        {"idModificado", form.mlngIdUltimo}});
    forms_.erase(std::find(forms_.begin(), forms_.end(), &form), forms_.end());
    menu_.reset();
}

int ScriptedSurface::messageBox(const std::string& text, int style, const std::string& title) {
    const int answer = answers_.answerTo(style);
    transcript().print({{"event", "message"},
                        {"text", text},
                        {"style", style},
                        {"title", title},
                        {"answer", answer}});
    return answer;
}

void ScriptedSurface::errorBox(const ErrorNotice& error) {
    transcript().print({{"event", "error"},
                        {"text", error.text},
                        {"title", error.title},
                        {"detail", error.detail},
                        {"context", error.context}});
}

std::optional<SaveChoice> ScriptedSurface::saveDialog(const SaveDialog& dialog) {
    std::optional<SaveChoice> choice = answers_.takeSave();
    transcript().print({{"event", "dialog"},
                        {"kind", "save"},
                        {"title", dialog.title},
                        {"folder", dialog.folder},
                        {"file", dialog.file},
                        {"filter", dialog.filter},
                        {"flags", dialog.flags},
                        {"answer", choice ? choice->path : "cancel"}});
    return choice;
}

void ScriptedSurface::copyText(const std::string& text) {
    transcript().print({{"event", "copied"}, {"text", text}});
}

void ScriptedSurface::showMenu(Window& window, const Menu& menu) {
    Json items = Json::array();
    for (const ActionPlace& place : menu.items) {
        const Action* action = window.commandBars.find(place.actionId);
        items.push_back(
            {{"id", place.actionId}, {"enabled", action != nullptr && action->enabled}});
    }
    transcript().print({{"event", "menu"}, {"items", items}});
    menu_ = menu;
}

}  // namespace catalogador
