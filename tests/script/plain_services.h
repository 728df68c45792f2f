#pragma once
#include "platform/grid_files.h"
#include "platform/language.h"
#include "platform/printer.h"
#include "platform/services.h"

namespace catalogador {

/// Services that know nothing and need nothing.
class PlainUtilities : public clsUtilidades {
  public:
    int calls = 0;

    std::int32_t ProximoCodigo(rdoConnection&, const std::string&) override {
        ++calls;
        return 17;
    }
    Date FechaServidor(rdoConnection&) override {
        ++calls;
        return {2025, 12, 31, 23, 59, 58};
    }
    [[nodiscard]] Date Ahora() const override { return {2025, 12, 31, 23, 59, 58}; }
    Variant LeerConfiguracion(const std::string&, const std::string&) override { return Null{}; }
    [[nodiscard]] std::string TextoDe(const Variant&) const override { return {}; }
    [[nodiscard]] std::string CarpetaAplicacion() const override { return "/programs"; }
    [[nodiscard]] std::string RutaAplicacion(const std::string&) const override { return {}; }
    std::string CarpetaVecina(const std::string&, const std::string& name) override {
        return "/" + name;
    }
    void AbrirArchivo(const std::string&) override { ++calls; }
    void MostrarAyuda(Window&, int, std::int32_t) override { ++calls; }
};

class PlainGridFiles : public GridFiles {
  public:
    void save(const RecordGrid&, const std::string&, int, const GridFileOptions&) override {}
};

class PlainPrinter : public Printer, private FontMeasure {
  public:
    std::optional<PrinterChoice> setUp(Window&) override { return std::nullopt; }
    void show(Window&, const PrintedDocument&, const PrinterChoice&) override {}
    [[nodiscard]] const FontMeasure& fonts() const override { return *this; }

  private:
    [[nodiscard]] int width(std::string_view text, const PrintFont&) const override {
        return static_cast<int>(text.size()) * 100;
    }
    [[nodiscard]] int lineHeight(const PrintFont&) const override { return 240; }
};

class PlainMessages : public clsMensajes {
  public:
    int MostrarMensaje(const std::string&, int, const std::string&) override { return 1; }
    void MostrarError(const std::string&, const std::string&, const std::string&,
                      const std::string&, const std::string&) override {}
    void Idioma(std::uint8_t) override {}
};

/// Knows one user with the rights "ABM".
class PlainAccess : public AccessLibrary {
  public:
    std::unique_ptr<clsAccesos> create() override { return std::make_unique<Questions>(); }

  private:
    class Questions : public clsAccesos {
      public:
        std::string PermisosOpcion(rdoConnection&, const std::string&, const std::string&,
                                   std::int16_t) override {
            return "ABM";
        }
        void UsuarioActual(rdoConnection&, const std::string&, std::int32_t& user) override {
            user = 1;
        }
    };
};

class PlainLanguages : public LanguageLibraries {
  public:
    std::unique_ptr<clsResources> create(const std::string&) override {
        return std::make_unique<Texts>();
    }

  private:
    class Texts : public clsResources {
      public:
        [[nodiscard]] std::string resLoad(std::int32_t id) const override {
            return "text " + std::to_string(id);
        }
        void IDAppName(const std::string&) override {}
        void IDSLng(std::uint8_t) override {}
    };
};

}  // namespace catalogador
