#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "adapters/services/messages.h"
#include "apps/options.h"
#include "component/clsCatalogador.h"
#include "platform/host.h"

namespace catalogador {

/// The settings and services that the options ask for.
struct Services {
    Regional regional;
    /// Number of the language of the texts.
    std::int16_t language = 1;
    std::unique_ptr<clsUtilidades> utilities;
    std::unique_ptr<AccessLibrary> access;
    std::unique_ptr<LanguageLibraries> languages;
};
/// Shows help over a window; the arguments of clsUtilidades::MostrarAyuda.
using HelpViewer = std::function<void(Window& window, int command, std::int32_t data)>;

/// Who works with the screen: the one that the options name, else who runs the program.
std::string userOf(const Options& options);
/// Without `help` a call for help is an error. Raises RuntimeError for a locale that is not known.
Services servicesOf(const Options& options, HelpViewer help = nullptr);

/// The component on a connection. Raises RuntimeError when it cannot be created.
std::unique_ptr<clsCatalogador> componentOf(Host& host, const Options& options,
                                            std::int16_t language, rdoConnection& connection);

}  // namespace catalogador
