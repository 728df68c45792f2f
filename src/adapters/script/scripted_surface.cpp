#include "adapters/script/scripted_surface.h"

#include "modules/modLenguaje.h"
#include "platform/controls/window.h"

namespace catalogador::script {

void ScriptedSurface::formOpening(std::int16_t view) {
    ++depth_;
    transcript().print({{"event", "opened"},
                        {"view", view},
                        {"depth", depth()},
                        {"language", currentLanguageLibrary()}});
}

void ScriptedSurface::formClosed(std::int16_t view, std::int32_t lastCode) {
    transcript().print(
        {{"event", "closed"}, {"view", view}, {"depth", depth()}, {"idModificado", lastCode}});
    --depth_;
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

}  // namespace catalogador::script
