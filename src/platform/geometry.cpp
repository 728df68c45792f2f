#include "platform/geometry.h"

#include <array>
#include <cstdio>

namespace catalogador {

namespace {
constexpr std::array<const char*, 25> systemColorNames{
    "scrollBars",      "desktop",      "activeTitleBar", "inactiveTitleBar",
    "menuBar",         "window",       "windowFrame",    "menuText",
    "windowText",      "titleBarText", "activeBorder",   "inactiveBorder",
    "workspace",       "highlight",    "highlightText",  "buttonFace",
    "buttonShadow",    "grayText",     "buttonText",     "inactiveCaptionText",
    "buttonHighlight", "darkShadow3D", "light3D",        "infoText",
    "infoBackground"};
}

std::string colorName(Color color) {
    if (color.isSystem()) {
        const std::uint32_t index = color.value & 0xFFU;
        return std::string("system:") +
               (index < systemColorNames.size() ? systemColorNames[index] : "unknown");
    }
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", unsigned{color.red()},
                  unsigned{color.green()}, unsigned{color.blue()});
    return text.data();
}

}  // namespace catalogador
