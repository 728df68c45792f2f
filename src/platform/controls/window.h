#pragma once
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/command_bars.h"
#include "platform/controls/control.h"
#include "platform/surface.h"

namespace catalogador {

class RecordGrid;

enum class WindowState { normal = 0, minimized = 1, maximized = 2 };

/// A top-level window of the model: its controls in tab order, the focus, the command bars, and
/// the input members that a surface calls.
class Window {
  public:
    explicit Window(Surface& surface);
    virtual ~Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    [[nodiscard]] Surface& surface() const { return surface_; }

    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    /// Outer place on the screen in twips.
    [[nodiscard]] const Rect& place() const { return place_; }
    /// Sets the outer place in twips. onResize follows when the size has changed.
    void move(const Rect& place);
    void setWidth(int width) { move({place_.left, place_.top, width, place_.height}); }
    [[nodiscard]] WindowState state() const { return state_; }

    CommandBars commandBars;

    /// Tab order; the panel and labels are among them.
    [[nodiscard]] const std::vector<Control*>& controls() const { return controls_; }
    /// The control that all others stand in, nullptr when there is none.
    [[nodiscard]] Panel* panel() const { return panel_; }
    /// The list of records, nullptr when there is none.
    [[nodiscard]] RecordGrid* list() const { return list_; }
    /// nullptr when there is none of that name ("filter" is the edit box of the toolbar).
    [[nodiscard]] Control* find(std::string_view name) const;

    [[nodiscard]] Control* focus() const { return focus_; }
    /// Moves the focus. Raises invalidProcedureCall when the control cannot take it.
    void setFocus(Control& control);
    /// To the next (or previous) control that the Tab key stops at.
    void moveFocus(bool forward);
    /// The first field that the Tab key stops at, nullptr when there is none.
    [[nodiscard]] Control* firstField() const;
    /// Moves the focus: list, first field, toolbar, and round again, or the other way.
    void focusNextPart(bool forward);
    /// Called when a control is hidden or disabled: if it has the focus, the next one gets it.
    void focusLostIfUnable(Control& control);

    /// The text under the list: the position in it, or the next step of an edit.
    [[nodiscard]] virtual std::string statusText() const { return {}; }
    /// The text in place of the rows when there are none to show.
    [[nodiscard]] virtual std::string emptyListText() const { return {}; }

    /// The name under which a surface may keep the window's size; empty when it must not.
    [[nodiscard]] virtual std::string memoryName() const { return {}; }

    /// Input from a surface.
    /// A key pressed and released in the control with the focus: key bindings, the control's
    /// key-down event, Tab, the key-press event of keys that have a character (Enter, Escape,
    /// Backspace, Space), and last what the control itself does with the key.
    void pressKey(int keyCode, int modifiers = 0);
    /// A character typed into the control with the focus.
    void typeCharacter(char32_t character);
    /// Only the bindings, events and Tab; true when the key is used up, so that a native control
    /// must not act on it. For surfaces whose native controls edit by themselves.
    bool dispatchKey(int keyCode, int modifiers);
    /// Only the key-press event; gives the character to enter, 0 when it was swallowed.
    char32_t dispatchCharacter(char32_t character);
    /// The native focus moved (mouse click or the desktop's doing). Controls that cannot take the
    /// focus are ignored.
    void userFocused(Control& control);
    /// The user resized, moved, minimised or restored the window; place in twips, outer.
    void userPlaced(const Rect& place, WindowState state);
    /// The user or the program closes the window: query-unload, unload, closed.
    void requestClose();
    [[nodiscard]] bool isClosed() const { return closed_; }

    /// The user pressed Escape and no control used it.
    std::function<void()> onEscape;
    /// The user pressed F5 and neither a binding nor a control used it.
    std::function<void()> onRefresh;
    std::function<void()> onResize;
    std::function<void()> onQueryUnload;
    std::function<void()> onUnload;

    /// Called by controls and command bars.
    void controlChanged(Control& control);
    void commandBarsChanged();
    /// While it is open, the window notifies the surface of every change.
    void setOpen(bool open) { open_ = open; }
    [[nodiscard]] bool isOpen() const { return open_; }

  protected:
    /// Adds a control at the end of the tab order.
    void add(Control& control);

  private:
    void resized();
    [[nodiscard]] bool inTabOrder(const Control& control) const;

    Surface& surface_;
    std::string caption_;
    Rect place_;
    WindowState state_ = WindowState::normal;
    std::vector<Control*> controls_;
    Panel* panel_ = nullptr;
    RecordGrid* list_ = nullptr;
    Control* focus_ = nullptr;
    bool open_ = false;
    bool closed_ = false;
    bool resizing_ = false;
};

}  // namespace catalogador
