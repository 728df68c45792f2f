#pragma once
#include "adapters/script/answers.h"
#include "adapters/script/transcript.h"
#include "platform/services.h"

namespace catalogador::script {

/// The utility object with its calls traced.
class TracedUtilities : public clsUtilidades {
  public:
    TracedUtilities(clsUtilidades& real, Transcript& transcript, TranscriptStatements& statements)
        : real_(real), transcript_(transcript), statements_(statements) {}

    std::int32_t ProximoCodigo(rdoConnection& connection, const std::string& name) override;
    Date FechaServidor(rdoConnection& connection) override;
    [[nodiscard]] Date Ahora() const override { return real_.Ahora(); }
    Variant LeerConfiguracion(const std::string& key, const std::string& name) override {
        return real_.LeerConfiguracion(key, name);
    }
    [[nodiscard]] std::string TextoDe(const Variant& value) const override {
        return real_.TextoDe(value);
    }
    [[nodiscard]] std::string CarpetaAplicacion() const override {
        return real_.CarpetaAplicacion();
    }
    [[nodiscard]] std::string RutaAplicacion(const std::string& appKey) const override {
        return real_.RutaAplicacion(appKey);
    }
    std::string CarpetaVecina(const std::string& path, const std::string& name) override {
        return real_.CarpetaVecina(path, name);
    }
    void AbrirArchivo(const std::string& path) override { real_.AbrirArchivo(path); }
    void MostrarAyuda(Window& window, int command, std::int32_t data) override {
        real_.MostrarAyuda(window, command, data);
    }

  protected:
    [[nodiscard]] Transcript& transcript() { return transcript_; }
    /// The server's date as FechaServidor gives it, without a trace of the statement.
    virtual Date serverDate(rdoConnection& connection);

  private:
    void traceCall(const char* call, const std::string& argument, const Json& result);

    clsUtilidades& real_;
    Transcript& transcript_;
    TranscriptStatements& statements_;
};

/// The utility object of a played screen: the real one, but for the clock that a script may set and
/// for what would start another program, which is printed instead.
class ScriptedUtilities : public TracedUtilities {
  public:
    ScriptedUtilities(clsUtilidades& real, Transcript& transcript, TranscriptStatements& statements,
                      const ScriptAnswers& answers)
        : TracedUtilities(real, transcript, statements), answers_(answers) {}

    [[nodiscard]] Date Ahora() const override {
        return answers_.clock.value_or(TracedUtilities::Ahora());
    }
    void AbrirArchivo(const std::string& path) override;
    void MostrarAyuda(Window& window, int command, std::int32_t data) override;

  protected:
    Date serverDate(rdoConnection& connection) override;

  private:
    const ScriptAnswers& answers_;
};

/// Traces every question about rights as an "access" event.
class TracedAccess : public AccessLibrary {
  public:
    TracedAccess(AccessLibrary& real, Transcript& transcript, TranscriptStatements& statements)
        : real_(real), transcript_(transcript), statements_(statements) {}
    std::unique_ptr<clsAccesos> create() override;

  private:
    AccessLibrary& real_;
    Transcript& transcript_;
    TranscriptStatements& statements_;
};

}  // namespace catalogador::script
