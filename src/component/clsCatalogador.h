#pragma once
#include <cstdint>
#include <string>

#include "platform/host.h"
#include "runtime/error.h"

namespace catalogador {

/// The public class: opens the maintenance screen for a view and adds codes without a screen.
///
/// Coneccion, Empresa, AppKey and Idioma are to be set before either method is called.
class clsCatalogador {
  public:
    /// Loads the language library. Raises RuntimeError (languageMissing) when it is missing, after
    /// the user was shown it. `host` must outlive the object. `depth` is the number of screens that
    /// are open inside one another once this object shows its own: 1 for a host's own.
    explicit clsCatalogador(Host& host, int depth = 1);

    /// The host's open connection, not owned, which must outlive its use; null for none. A
    /// connection that cannot be used is noticed only when a screen or AddNew uses it.
    void Coneccion(rdoConnection* connection) { connection_ = connection; }
    void Empresa(std::int16_t company) { company_ = company; }
    void AppKey(std::string key) { appKey_ = std::move(key); }
    void Idioma(std::int16_t language) { language_ = language; }
    /// Code of the last record that the form or AddNew created, modified or deleted; 0 until then.
    [[nodiscard]] std::int32_t IDModificado() const { return lastModified_; }

    /// Shows the screen of view `ABM` until the user closes it. `IDValor` >= 1 opens that record,
    /// -1 starts a new one with the text `Valor`. False when the view could not be opened.
    bool ActivarABM(std::int16_t ABM, std::int32_t IDValor = 0, const std::string& Valor = {});

    /// Adds a short text to a view if it is not there yet, with a code of the sequence
    /// `NombreVista`: 1 added, 0 already there or no code to be had, 9 an argument is missing.
    std::uint8_t AddNew(std::int16_t IDVista, const std::string& NombreVista,
                        const std::string& Valor);

  private:
    void showForm(std::int16_t view, std::int32_t code, const std::string& text);
    /// `result` is what AddNew gives, also when an error is raised.
    void insertText(std::int16_t view, const std::string& sequence, const std::string& text,
                    std::uint8_t& result);
    void updateAdded(rdoResultset& rows, std::int16_t view, std::int32_t code);
    /// Whether the record of that code is in the database; nullopt when that cannot be determined.
    std::optional<bool> isStored(std::int16_t view, std::int32_t code);
    void report(std::int32_t message, const RuntimeError& error);

    Host& host_;
    int depth_;
    rdoConnection* connection_ = nullptr;
    std::int16_t company_ = 0;
    std::string appKey_;
    std::int16_t language_ = 0;
    std::string applicationName_;
    std::int32_t user_ = -1;
    std::int32_t lastModified_ = 0;
};

}  // namespace catalogador
