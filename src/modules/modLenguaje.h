#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/host.h"

namespace catalogador {

/// The language object, one for each thread that creates objects of the component, because the
/// library behind it may not be used on another thread. Null until a load succeeds.
extern thread_local std::unique_ptr<clsResources> gobjLenguaje;
/// Successful loads in this process.
extern std::uint8_t gbytCargasLenguaje;

/// Name of the library of a product and language: "LNG_QTX_001".
std::string languageLibraryName(const std::string& product, std::uint8_t language);
/// Name of the library that the last CargarLenguaje asked for, "" before the first.
const std::string& currentLanguageLibrary();

/// Loads the language library for the configured language. Returns 1 when it was loaded,
/// 0 after the user was shown that it is missing.
std::uint8_t CargarLenguaje(Host& host, const std::string& claveConfiguracion,
                            const std::string& claveProducto, const std::string& nombreAplicacion);

/// The text of a message, or nullopt when there is none, for callers that can do without it. Never
/// raises.
std::optional<std::string> messageIfKnown(std::int32_t number);

/// The text of a message, or "RNF " and its number when there is none. Never raises.
std::string ObtenerMensaje(std::int32_t numero);

}  // namespace catalogador
