#include "com/component/component_host.h"

#include "adapters/services/regional.h"
#include "adapters/system/desk.h"
#include "adapters/system/wide_text.h"
#include "com/automation/com_api.h"
#include "com/component/desk_screen.h"

namespace catalogador::com {

namespace {

/// What the person in front of the screen takes the host for: the name of its program.
std::string hostTitle() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    path.erase(0, path.find_last_of(L"\\/") + 1);
    return system::utf8Of(path.substr(0, path.find_last_of(L'.')));
}

}  // namespace

ComponentHost::ComponentHost()
    : regional_(services::regionalOf("")),
      utilities_(services::Settings(services::Settings::defaultFile(), {}), regional_,
                 system::programFolder(),
                 [](Window& window, int command, std::int32_t data) {
                     DeskScreen::instance().showHelp(window, command, data);
                 }),
      messages_(DeskScreen::instance()),
      access_(system::systemUser()),
      host_{DeskScreen::instance(), utilities_, messages_,  access_, languages_, gridFiles_,
            DeskScreen::instance(), regional_,  hostTitle()} {}

}  // namespace catalogador::com
