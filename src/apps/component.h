#pragma once
#include <cstdint>
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
/// Raises RuntimeError for a locale that is not known.
Services servicesOf(const Options& options);

/// The component on a connection. Raises RuntimeError when it cannot be created.
std::unique_ptr<clsCatalogador> componentOf(Host& host, const Options& options,
                                            std::int16_t language, rdoConnection& connection);

}  // namespace catalogador
