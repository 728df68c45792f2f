#include "apps/component.h"

#include "adapters/desktop/folders.h"
#include "adapters/languages/catalogue_languages.h"
#include "adapters/services/access.h"
#include "adapters/services/regional.h"
#include "adapters/services/utilities.h"
#include "adapters/system/desk.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr const char* settingsKey = "VEM04";
constexpr const char* languageSetting = "Idioma";

std::map<std::string, std::string> settingsOf(const Options& options) {
    auto settings = options.settings;
    if (options.language) settings[languageSetting] = decimalText(*options.language);
    return settings;
}

std::int16_t configuredLanguage(const Services& services) {
    constexpr std::int16_t spanish = 1;
    try {
        const Variant setting = services.utilities->LeerConfiguracion(settingsKey, languageSetting);
        const std::string text = toTextOrEmpty(setting, services.regional);
        const std::int16_t number = toInteger(Variant(leadingNumber(text)), services.regional);
        return number == 0 ? spanish : number;
    } catch (const RuntimeError&) {
        // The texts fall back to Spanish for such a setting as well.
        return spanish;
    }
}

}  // namespace

std::string userOf(const Options& options) {
    return options.user.empty() ? system::systemUser() : options.user;
}

Services servicesOf(const Options& options, HelpViewer help) {
    Services services;
    services.regional = services::regionalOf(options.locale);
    services.utilities = std::make_unique<services::Utilities>(
        services::Settings(services::Settings::defaultFile(), settingsOf(options)),
        services.regional, system::programFolder(), std::move(help));
    services.access = std::make_unique<services::TableAccessLibrary>(userOf(options));
    services.languages = std::make_unique<languages::CatalogueLanguages>(
        options.messages.empty() ? desktop::languagesFolder() : options.messages);
    services.language = options.language.value_or(configuredLanguage(services));
    return services;
}

std::unique_ptr<clsCatalogador> componentOf(Host& host, const Options& options,
                                            std::int16_t language, rdoConnection& connection) {
    auto component = std::make_unique<clsCatalogador>(host);
    component->Coneccion(&connection);
    component->Empresa(options.company);
    component->AppKey(options.appKey);
    component->Idioma(language);
    return component;
}

}  // namespace catalogador
