#pragma once
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/action_ids.h"
#include "platform/controls/fields.h"

namespace catalogador {

/// A command of the screen, shared by every place that shows it.
struct Action {
    int id = 0;
    std::string caption;
    std::string tooltip;
    std::string description;
    std::string category;
    bool enabled = true;
    bool checked = false;
    /// Number of the picture; the action's own id unless set otherwise.
    int icon = 0;
};

/// A place that shows an action: a menu entry or a toolbar button.
struct ActionPlace {
    int actionId = 0;
    /// A separator stands before it.
    bool beginGroup = false;
    /// Icon and caption instead of the icon alone (toolbar only).
    bool showCaption = false;
};

/// A popup menu; `actionId` is the action whose caption is its title (0: none).
struct Menu {
    int id = 0;
    std::string title;
    int actionId = 0;
    std::vector<ActionPlace> items;
};

struct KeyBinding {
    /// 0, bindingControl, or that and bindingShift.
    int modifiers = 0;
    /// Code of a key, or of the character that a key stands for.
    int keyCode = 0;
    int actionId = 0;
};

/// Code of the key of a letter, which is that of its capital; 0 for what is no letter.
int letterKey(char32_t character);
/// Whether a letter's key has that code.
inline bool isLetterKey(int keyCode) {
    return keyCode != 0 && letterKey(static_cast<char32_t>(keyCode)) == keyCode;
}

class CommandBars;

/// The buttons of the toolbar as a place for the focus: Left and Right go from button to button,
/// Enter and Space press the one that is current, Escape goes back to where the user came from.
class ToolbarButtons : public Control {
  public:
    explicit ToolbarButtons(CommandBars& bars) : Control("toolbar"), bars_(bars) {}
    [[nodiscard]] bool focusable() const override { return true; }
    /// The action of the current button, 0 while the focus is elsewhere or no button is enabled.
    [[nodiscard]] int current() const;

    bool takeKeyFirst(int keyCode, int modifiers) override;
    bool defaultKey(int keyCode, int modifiers) override;
    void focusComes(Control* from) { cameFrom_ = from; }

  private:
    [[nodiscard]] std::vector<int> enabledButtons() const;

    CommandBars& bars_;
    int button_ = 0;
    Control* cameFrom_ = nullptr;
};

/// The actions of a window and all places that show them: the menus, the "Standar" toolbar with
/// its edit box, the quick-access buttons, context menus and key bindings.
class CommandBars {
  public:
    /// Adds an enabled action with the icon of its id.
    void addAction(int id, std::string caption, std::string tooltip, std::string description,
                   std::string category);
    [[nodiscard]] const std::vector<Action>& actions() const { return actions_; }
    /// nullptr when there is no such action.
    [[nodiscard]] const Action* find(int id) const;
    /// These raise invalidProcedureCall for an action that does not exist.
    void setEnabled(int id, bool enabled);
    void setChecked(int id, bool checked);
    void setIcon(int id, int icon);
    void setCaption(int id, std::string caption);

    /// Runs an action as a click would: false when it is disabled or does not exist.
    bool execute(int id);
    std::function<void(int id)> onExecute;
    /// The free client area changed.
    std::function<void()> onResize;

    /// The menus of the menu bar, from left to right.
    std::vector<Menu> menus;
    std::string toolbarName;
    std::vector<ActionPlace> toolbar;
    /// Buttons next to the toolbar (export and print).
    std::vector<ActionPlace> quickAccess;
    std::vector<Menu> contextMenus;
    std::vector<KeyBinding> bindings;
    /// Captions of the bar itself.
    std::string title;
    std::string groupCaption;
    /// Picture of the application button, 0 none.
    int systemIcon = 0;
    /// File of the theme that the bars were asked to use.
    std::string themeFile;

    /// nullptr when there is no such menu.
    [[nodiscard]] const Menu* contextMenu(int id) const;
    /// The action bound to a key, 0 when none is. The key of a letter has the code of its capital,
    /// so that nothing is bound to a key by a small letter.
    [[nodiscard]] int boundAction(int keyCode, int modifiers) const;
    /// Binds a key to an action unless another action has that key.
    void bindIfFree(const KeyBinding& binding);

    /// The edit box of the toolbar; a control of the window by the name "filter".
    TextBox filterBox{"filter"};
    ToolbarButtons buttons{*this};
    /// Width of the edit box in pixels at 96 dpi.
    int filterBoxWidth = 92;

    /// A colour of the theme's table: entry 36 is the background and 45 the text of header cells.
    [[nodiscard]] Color paintColor(int entry) const;

    /// Has the surface lay out the bars again; onResize follows.
    void recalcLayout();

  private:
    friend class Window;
    Action& require(int id);
    void changed();

    std::vector<Action> actions_;
    Window* window_ = nullptr;
};

}  // namespace catalogador
