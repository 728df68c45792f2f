#pragma once
#include <functional>
#include <string>

#include "adapters/services/settings.h"
#include "platform/services.h"
#include "runtime/regional.h"

namespace catalogador::services {

/// The utility object over the tables of the host's own database and the user's settings.
class Utilities : public clsUtilidades {
  public:
    using HelpViewer = std::function<void(Window& window, int command, std::int32_t data)>;

    /// `programFolder` without a trailing separator; `help` shows a page of help.
    Utilities(Settings settings, Regional regional, std::string programFolder, HelpViewer help);

    std::int32_t ProximoCodigo(rdoConnection& connection, const std::string& name) override;
    Date FechaServidor(rdoConnection& connection) override;
    [[nodiscard]] Date Ahora() const override;
    Variant LeerConfiguracion(const std::string& key, const std::string& name) override;
    [[nodiscard]] std::string TextoDe(const Variant& value) const override;
    [[nodiscard]] std::string CarpetaAplicacion() const override { return programFolder_; }
    /// The setting "Ruta" of that key, else the program's folder.
    [[nodiscard]] std::string RutaAplicacion(const std::string& appKey) const override;
    std::string CarpetaVecina(const std::string& path, const std::string& name) override;
    /// Raises RuntimeError (invalidProcedureCall) when there is no such file or no desktop to open
    /// it. Does not wait for the program that shows it.
    void AbrirArchivo(const std::string& path) override;
    void MostrarAyuda(Window& window, int command, std::int32_t data) override;

  private:
    Settings settings_;
    Regional regional_;
    std::string programFolder_;
    HelpViewer help_;
};

}  // namespace catalogador::services
