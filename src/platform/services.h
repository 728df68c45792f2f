#pragma once
#include <cstdint>
#include <memory>
#include <string>

#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador {

class Window;

/// Styles of message boxes. The numbers are those that traces show.
constexpr int styleExclamation = 48;
constexpr int styleQuestion = 36;
constexpr int styleQuestionDefaultNo = 292;
constexpr int answerYes = 6;
constexpr int answerNo = 7;

/// Commands of clsUtilidades::MostrarAyuda.
namespace help_command {
constexpr int contents = 3;
/// The page of an id.
constexpr int page = 15;
}  // namespace help_command

/// The utility object of the host's service library.
class clsUtilidades {
  public:
    virtual ~clsUtilidades() = default;
    /// The next code of a named sequence, unique among all clients; -1 when none can be given. The
    /// reason is left in currentError().
    virtual std::int32_t ProximoCodigo(rdoConnection& connection, const std::string& name) = 0;
    /// Date and time of the database server, with the precision that it has. Raises RuntimeError.
    virtual Date FechaServidor(rdoConnection& connection) = 0;
    /// Local date and time of the machine that runs the program, to the second.
    [[nodiscard]] virtual Date Ahora() const = 0;
    /// A setting by key and name; Null when it is not set.
    virtual Variant LeerConfiguracion(const std::string& key, const std::string& name) = 0;
    /// The value's text; Null gives the empty text.
    [[nodiscard]] virtual std::string TextoDe(const Variant& value) const = 0;
    /// The folder of the program, without a trailing separator.
    [[nodiscard]] virtual std::string CarpetaAplicacion() const = 0;
    /// The path of the application with that key.
    [[nodiscard]] virtual std::string RutaAplicacion(const std::string& appKey) const = 0;
    /// The folder `name` in the folder that holds `path`, written as the system writes paths; it is
    /// made when it is missing. A `path` of one name is taken for the holding folder itself. Raises
    /// RuntimeError (76) when the folder cannot be made.
    virtual std::string CarpetaVecina(const std::string& path, const std::string& name) = 0;
    /// Opens a file with the program that the desktop has for it. Raises RuntimeError if it cannot.
    virtual void AbrirArchivo(const std::string& path) = 0;
    /// Runs one of help_command; `data` is the page's id. Raises RuntimeError without help.
    virtual void MostrarAyuda(Window& window, int command, std::int32_t data) = 0;
};

/// The message object of the host's service library.
class clsMensajes {
  public:
    virtual ~clsMensajes() = default;
    /// Shows a message box of one of the styles above; returns 1 for OK, answerYes or answerNo.
    virtual int MostrarMensaje(const std::string& text, int style, const std::string& title) = 0;
    /// Shows an error with its detail ("number - description") and, where given, its context and
    /// what could not be done, in the user's words.
    virtual void MostrarError(const std::string& text, const std::string& title,
                              const std::string& detail, const std::string& context = {},
                              const std::string& task = {}) = 0;
    /// Sets the language of the object's own dialogs: 1 Spanish, 2 English, 3 Portuguese.
    virtual void Idioma(std::uint8_t number) = 0;
};

/// The access component: users, options and rights per company.
class clsAccesos {
  public:
    virtual ~clsAccesos() = default;
    /// The rights of the current user for an option in a company: letters, none for no right.
    virtual std::string PermisosOpcion(rdoConnection& connection, const std::string& appKey,
                                       const std::string& option, std::int16_t company) = 0;
    /// Sets `user` to the id of the current user, -1 for an unknown person. Raises RuntimeError.
    virtual void UsuarioActual(rdoConnection& connection, const std::string& appKey,
                               std::int32_t& user) = 0;
};

/// Creates the access component, as the host's library does for each question.
class AccessLibrary {
  public:
    virtual ~AccessLibrary() = default;
    virtual std::unique_ptr<clsAccesos> create() = 0;
};

}  // namespace catalogador
