#pragma once
#include <wx/frame.h>
#include <wx/panel.h>
#include <wx/textctrl.h>
#include <wx/toolbar.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "adapters/wx/field_views.h"
#include "adapters/wx/native_focus.h"
#include "platform/controls/window.h"
#include "platform/surface.h"
#include "platform/window_memory.h"

class wxGUIEventLoop;
class wxStaticText;

namespace catalogador::wx {

class GridView;

/// Modal loops (boxes, dialogs, nested screens) that were begun in this process. The toolkit offers
/// a key that nobody used to the surrounding windows as well, and forgets that it has done so once
/// another loop has run; so a key that began one must count as used.
inline int modalLoopsBegun = 0;

/// The native window of one form: menu bar, toolbar and the panel with its controls. Changes of
/// the model are gathered and shown together, before the next event is waited for.
class ScreenFrame : public wxFrame {
  public:
    ScreenFrame(Window& window, wxWindow* below);

    [[nodiscard]] Window& window() const { return window_; }
    /// Size and place as the model has them, at once.
    void applyWindow();
    /// Gives the window the size that its user gave it last, otherwise one that makes use of the
    /// screen; in both cases it stays within the part of the screen that the desktop leaves free.
    void placeForUser(const WindowMemory& memory);
    /// Remembers the size where the user has changed it.
    void keepSize(const WindowMemory& memory) const;
    void controlChanged(Control& control);
    void barsChanged();
    void focusChanged();
    void popupLater(const Menu& menu);
    /// Shows everything that changed.
    void sync();
    /// Does beforehand, while others work, what takes long when the window is first shown.
    void prepare();
    void takeFocus();
    /// Returns when the model's window is closed.
    void runLoop();
    /// The model goes away: nothing of it is touched from here on, and the window is destroyed.
    void release();

    /// Whether the desktop has done with the window what the model says.
    [[nodiscard]] bool isSettled() const;
    [[nodiscard]] Rect clientRect() const;
    /// Empty while the selected row is out of sight.
    [[nodiscard]] wxRect selectedRowOnScreen() const;
    [[nodiscard]] std::vector<std::string> differences() const;

  private:
    /// Null for a control that is shown otherwise (the panel).
    FieldView* createField(Control& control);
    /// The label that names a text box or a combo: the one before it in the model.
    [[nodiscard]] const Label* captionOf(const Control& control) const;
    void bindWindowEvents();
    void bindMenuEvents();
    void syncFields();
    void layOut();
    void everythingChanged();
    void createMenus();
    void syncMenus();
    void syncToolbar();
    void rebuildToolbar();
    void addTool(const ActionPlace& place);
    [[nodiscard]] std::string toolbarSignature() const;
    void syncFocus();
    void onKey(wxKeyEvent& event);
    bool handleKey(int keyCode, int modifiers);
    [[nodiscard]] bool isForTheModel(int keyCode, int modifiers) const;
    [[nodiscard]] GridView* gridView() const;
    /// Closes the lists of combos that are open, without choosing.
    void closeLists();
    /// Shows which button of the toolbar has the focus.
    void markButton();
    void syncStatus();
    void onResize();
    void onClose(wxCloseEvent& event);
    void findOverlaps(std::vector<std::string>& found) const;
    [[nodiscard]] FieldView* viewOf(const Control& control) const;
    [[nodiscard]] wxWindow* nativeOf(const Control& control) const;
    void appendEntry(wxMenu& menu, const ActionPlace& place, const Action& action) const;
    void nameToolbar();
    /// The action's tooltip with the key that is bound to it.
    [[nodiscard]] wxString tooltipOf(const Action& action) const;

    Window& window_;
    bool released_ = false;
    bool hostQuits_ = false;
    /// What the window had for an owner when it was made.
    WXWidget owner_ = nullptr;
    wxPanel* panel_ = nullptr;
    wxToolBar* toolbar_ = nullptr;
    wxTextCtrl* filterBox_ = nullptr;
    wxStaticText* status_ = nullptr;
    int markedButton_ = 0;
    KeyHandler toolbarKeys_;
    /// Whether a key has asked for a context menu, which then belongs beside the selected row.
    bool menuAtRow_ = false;
    /// Of the controls that were ever visible.
    std::map<const Control*, std::unique_ptr<FieldView>> views_;
    std::set<const Control*> changedControls_;
    std::string shownToolbar_;
    bool barsChanged_ = true;
    bool focusChanged_ = true;
    bool windowChanged_ = true;
    bool syncing_ = false;
    wxSize appliedSize_;
    /// The size that the window came up with, and the last one that was not the whole screen.
    WindowSize firstSize_;
    Size normalSize_;
    /// Whether the window is minimised or the desktop was asked for that, and whether it still has
    /// to answer.
    bool iconic_ = false;
    bool awaitsIconic_ = false;
    /// The room that the controls were laid out in.
    wxSize laidOutSize_;
    /// The room in the panel that the fields were laid out in.
    wxSize fieldRoom_;
    wxGUIEventLoop* loop_ = nullptr;
};

/// `seen` is a part of the screen that the box leaves free where it can.
int showMessageBox(wxWindow* parent, const std::string& text, int style, const std::string& title,
                   const wxRect& seen);
void showErrorBox(wxWindow* parent, const ErrorNotice& error);
/// Asks before a file is replaced where the dialog's flags say so; No shows the dialog again.
std::optional<SaveChoice> showSaveDialog(wxWindow* parent, const SaveDialog& dialog);

}  // namespace catalogador::wx
