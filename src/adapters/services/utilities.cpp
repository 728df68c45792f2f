#include "adapters/services/utilities.h"

#include <ctime>
#include <filesystem>
#include <system_error>

#include "adapters/services/code_sequences.h"
#include "adapters/services/opening.h"
#include "adapters/services/server_clock.h"
#include "adapters/system/desk.h"
#include "adapters/system/paths.h"
#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador::services {

namespace {

constexpr std::int32_t noCode = -1;
constexpr std::int32_t pathNotFound = 76;

/// Where backslashes separate the names of a path, slashes do too.
constexpr bool backslashSeparates = std::filesystem::path::preferred_separator == '\\';
constexpr const char* pathSeparator = backslashSeparates ? "\\" : "/";
constexpr const char* pathSeparators = backslashSeparates ? "\\/" : "/";

}  // namespace

Utilities::Utilities(Settings settings, Regional regional, std::string programFolder,
                     HelpViewer help)
    : settings_(std::move(settings)),
      regional_(std::move(regional)),
      programFolder_(std::move(programFolder)),
      help_(std::move(help)) {}

std::int32_t Utilities::ProximoCodigo(rdoConnection& connection, const std::string& name) {
    currentError().clear();
    try {
        return drawCode(connection, name);
    } catch (const RuntimeError& error) {
        currentError() = {error.number(), error.description(), error.cause()};
    } catch (const std::exception& error) {
        currentError() = {error_number::invalidProcedureCall, error.what()};
    }
    return noCode;
}

Date Utilities::FechaServidor(rdoConnection& connection) {
    return serverTime(connection);
}

Date Utilities::Ahora() const {
    const std::time_t now = std::time(nullptr);
    const std::tm local = system::localTime(now);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

Variant Utilities::LeerConfiguracion(const std::string& key, const std::string& name) {
    const auto setting = settings_.read(key, name);
    return setting ? Variant(*setting) : Variant(Null{});
}

std::string Utilities::TextoDe(const Variant& value) const {
    return toTextOrEmpty(value, regional_);
}

std::string Utilities::RutaAplicacion(const std::string& appKey) const {
    if (const auto setting = settings_.read(appKey, "Ruta")) return *setting;
    // What is kept beside the program's folder goes to the user's where nobody may write there.
    const std::filesystem::path own = system::userFolder();
    if (own.empty() || system::mayWriteTo(pathOf(programFolder_).parent_path()))
        return programFolder_;
    return pathText(own / pathOf(appKey));
}

std::string Utilities::CarpetaVecina(const std::string& path, const std::string& name) {
    const std::string folder =
        path.substr(0, path.find_last_of(pathSeparators)) + pathSeparator + name;
    std::error_code error;
    if (!std::filesystem::is_directory(pathOf(folder), error) &&
        !std::filesystem::create_directory(pathOf(folder), error) && error)
        throw RuntimeError(pathNotFound, "The folder " + folder + " cannot be created (" +
                                             error.message() + "); choose another one");
    return folder;
}

void Utilities::AbrirArchivo(const std::string& path) {
    openWithDesktop(path);
}

void Utilities::MostrarAyuda(Window& window, int command, std::int32_t data) {
    if (!help_)
        throw RuntimeError(error_number::cannotCreateObject, "There is no help in this version");
    help_(window, command, data);
}

}  // namespace catalogador::services
