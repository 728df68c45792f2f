#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/geometry.h"

namespace catalogador {

class Control;
class Window;
struct Menu;

/// A save dialog to be shown. `filter` is a list "caption|pattern|caption|pattern".
struct SaveDialog {
    std::string title;
    std::string folder;
    std::string file;
    std::string filter;
    int flags = 0;
};

/// An error as it is shown to the user.
struct ErrorNotice {
    std::string text;
    std::string title;
    /// "number - description".
    std::string detail;
    /// Where it happened; may be empty.
    std::string context{};
    /// What could not be done, in the user's words; empty where the text says it.
    std::string task{};
};

struct SaveChoice {
    std::string path;
    /// Which entry of the filter list was chosen, counted from 1.
    int filterIndex = 1;
};

/// Shows the screen model to a user and feeds the user's input back into it. It holds no rule of
/// the system: it draws what the model says and calls the model's input members.
///
/// The order of a window's life is open (a native window that is not shown yet), the form's load
/// sequence, showModal, close.
class Surface {
  public:
    virtual ~Surface() = default;

    virtual void open(Window& window) = 0;
    /// Shows the window and returns when window.isClosed().
    virtual void showModal(Window& window) = 0;
    virtual void close(Window& window) = 0;

    /// The model has changed and must be drawn again. Called only for windows that are open.
    virtual void windowChanged(Window& window) = 0;
    virtual void controlChanged(Window& window, Control& control) = 0;
    /// Actions, menus, toolbar or the filter box changed.
    virtual void commandBarsChanged(Window& window) = 0;
    virtual void focusChanged(Window& window) = 0;
    /// Sets the mouse pointer of the whole screen: 0 default, 11 hourglass.
    virtual void pointerChanged(int pointer) = 0;

    /// Sets the language of the surface's own texts: 1 Spanish, 2 English, 3 Portuguese.
    virtual void speak(std::uint8_t /*language*/) {}
    /// Shows a message box until the user answers it. Style and result are those of clsMensajes.
    virtual int messageBox(const std::string& text, int style, const std::string& title) = 0;
    virtual void errorBox(const ErrorNotice& error) = 0;
    /// nullopt when the user cancels.
    virtual std::optional<SaveChoice> saveDialog(const SaveDialog& dialog) = 0;
    /// Opens a popup menu. The choice comes back through CommandBars::execute.
    virtual void showMenu(Window& window, const Menu& menu) = 0;

    /// Puts a text on the clipboard.
    virtual void copyText(const std::string& /*text*/) {}

    /// Width in twips of a text in the font of the panel.
    [[nodiscard]] virtual int textWidth(std::string_view text) const = 0;
    /// The place in twips of the monitor that shows the window, or will show it, including what
    /// the desktop reserves for itself.
    [[nodiscard]] virtual Rect monitorOf(const Window& window) const = 0;
    /// The part of the window that the command bars leave free, relative to its own corner
    /// (so left and top are usually 0).
    [[nodiscard]] virtual Rect clientRect(const Window& window) const = 0;

    /// Tells how far a long piece of work is and keeps the window alive; `done` equal to `total`
    /// ends it. `total` is unknownTotal where nobody knows. False when the user wants it stopped.
    static constexpr int unknownTotal = -1;
    virtual bool progress(Window& /*window*/, int /*done*/, int /*total*/) { return true; }

    /// Makes a short sound: only a part of what the user wanted could be done.
    virtual void beep() {}

    /// Lets the desktop handle what is pending, such as painting.
    virtual void processEvents() = 0;
};

}  // namespace catalogador
