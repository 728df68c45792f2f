#include "modules/modLenguaje.h"

#include "modules/modErrores.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {

thread_local std::unique_ptr<clsResources> gobjLenguaje;
std::uint8_t gbytCargasLenguaje = 0;

namespace {

/// Message n is stored under resource id n + 1000.
constexpr std::int32_t resourceOffset = 1000;
thread_local std::string gstrLibreria;

std::uint8_t primaryLanguage(Host& host, const std::string& key) {
    std::uint8_t number = 0;
    ignoringErrors([&] {
        const Variant setting = host.utilities.LeerConfiguracion(key, "Idioma");
        number = toByte(leadingNumber(toTextOrEmpty(setting, host.regional)), host.regional);
    });
    return number;
}

std::uint8_t secondaryLanguage(Host& host, const std::string& key) {
    std::uint8_t number = 0;
    ignoringErrors(
        [&] { number = toByte(host.utilities.LeerConfiguracion(key, "Idioma2"), host.regional); });
    return number;
}

void reportMissingLibrary(Host& host, const std::string& library, const RuntimeError& error) {
    host.messages.MostrarError("Falta el componente de idioma: " + library + ".dll\r\n" +
                                   "Se finalizará la ejecución de la aplicación.",
                               host.title, errorText(error.number(), error.description()),
                               "Configuración de Idioma");
}

}  // namespace

std::string languageLibraryName(const std::string& product, std::uint8_t language) {
    const char* prefix = upperCase(product) == "VEM04" ? "LNG_QTX_" : "LNG_QPL_";
    return prefix + zeroPadded(language, 3);
}

const std::string& currentLanguageLibrary() {
    return gstrLibreria;
}

std::uint8_t CargarLenguaje(Host& host, const std::string& claveConfiguracion,
                            const std::string& claveProducto, const std::string& nombreAplicacion) {
    std::uint8_t language = primaryLanguage(host, claveConfiguracion);
    const std::uint8_t secondary = secondaryLanguage(host, claveConfiguracion);
    if (language == 0) language = 1;
    ignoringErrors([&] { host.messages.Idioma(language); });
    currentError().clear();

    gobjLenguaje.reset();
    gstrLibreria = languageLibraryName(claveProducto, language);
    try {
        gobjLenguaje = host.languages.create(gstrLibreria + ".clsResources");
    } catch (const RuntimeError& error) {
        reportMissingLibrary(host, gstrLibreria, error);
        currentError().clear();
        return 0;
    }
    ignoringErrors([&] { gobjLenguaje->IDAppName(nombreAplicacion); });
    ignoringErrors([&] { gobjLenguaje->IDSLng(secondary); });
    // The counter is a byte that never wraps: its overflow is one more ignored error.
    if (gbytCargasLenguaje < UINT8_MAX) ++gbytCargasLenguaje;
    return 1;
}

std::optional<std::string> messageIfKnown(std::int32_t number) {
    try {
        if (gobjLenguaje != nullptr && number <= INT32_MAX - resourceOffset)
            return gobjLenguaje->resLoad(number + resourceOffset);
    } catch (const RuntimeError&) {
        // A library that comes with a host may lack texts.
    }
    return std::nullopt;
}

std::string ObtenerMensaje(std::int32_t numero) {
    return messageIfKnown(numero).value_or("RNF " + decimalText(numero));
}

}  // namespace catalogador
