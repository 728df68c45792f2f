#include "adapters/wx/screen_frame.h"

#include <wx/evtloop.h>
#include <wx/iconbndl.h>
#include <wx/menu.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/grid_view.h"
#include "adapters/wx/host_windows.h"
#include "adapters/wx/icons.h"
#include "adapters/wx/text_entry.h"
#include "adapters/wx/window_answer.h"
#include "platform/controls/keys.h"
#include "platform/controls/record_grid.h"

namespace catalogador {

namespace {

constexpr int applicationIcon = 18;

/// Key codes of the toolkit and of the model. Everything else that has a character comes as one.
int modelKey(int code) {
    constexpr std::pair<int, int> keys[] = {{WXK_BACK, key::backspace},
                                            {WXK_TAB, key::tab},
                                            {WXK_RETURN, key::enter},
                                            {WXK_NUMPAD_ENTER, key::enter},
                                            {WXK_ESCAPE, key::escape},
                                            {WXK_SPACE, key::space},
                                            {WXK_PAGEUP, key::pageUp},
                                            {WXK_PAGEDOWN, key::pageDown},
                                            {WXK_NUMPAD_PAGEUP, key::pageUp},
                                            {WXK_NUMPAD_PAGEDOWN, key::pageDown},
                                            {WXK_END, key::end},
                                            {WXK_HOME, key::home},
                                            {WXK_NUMPAD_END, key::end},
                                            {WXK_NUMPAD_HOME, key::home},
                                            {WXK_LEFT, key::left},
                                            {WXK_UP, key::up},
                                            {WXK_RIGHT, key::right},
                                            {WXK_DOWN, key::down},
                                            {WXK_NUMPAD_LEFT, key::left},
                                            {WXK_NUMPAD_UP, key::up},
                                            {WXK_NUMPAD_RIGHT, key::right},
                                            {WXK_NUMPAD_DOWN, key::down},
                                            {WXK_DELETE, key::deleteKey},
                                            {WXK_NUMPAD_DELETE, key::deleteKey},
                                            {WXK_WINDOWS_MENU, key::menu},
                                            {WXK_MENU, key::menu}};
    for (const auto& [native, model] : keys)
        if (native == code) return model;
    if (code >= WXK_F1 && code <= WXK_F12) return key::f1 + (code - WXK_F1);
    return 0;
}

int modelModifiers(const wxKeyEvent& event) {
    return (event.ShiftDown() ? modifier::shift : 0) |
           (event.ControlDown() ? modifier::control : 0) | (event.AltDown() ? modifier::alt : 0);
}

}  // namespace

ScreenFrame::ScreenFrame(Window& window, wxWindow* below)
    : wxFrame(below, wxID_ANY, wxText(window.caption()), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE | (below != nullptr ? wxFRAME_FLOAT_ON_PARENT : 0)),
      window_(window) {
    owner_ = changeOwner(*this, nullptr);
    SetIcons(wxIconBundle(iconBundle(applicationIcon).GetIcon(FromDIP(wxSize(16, 16)))));
    panel_ = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS);
    toolbar_ = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_HORZ_TEXT | wxTB_NODIVIDER);
    everythingChanged();
    applyWindow();
    Bind(wxEVT_CHAR_HOOK, &ScreenFrame::onKey, this);
    Bind(wxEVT_CLOSE_WINDOW, &ScreenFrame::onClose, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        CallAfter([this] { onResize(); });
    });
    Bind(wxEVT_ICONIZE, [this](wxIconizeEvent& event) {
        event.Skip();
        CallAfter([this] { onResize(); });
    });
    Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        // A window that was disabled under another one comes back without any focus.
        if (event.GetActive() && !released_) takeFocus();
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        sync();
        event.Skip();
    });
    Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
        if (!released_) window_.commandBars.execute(event.GetId());
        sync();
    });
}

FieldView* ScreenFrame::createField(Control& control) {
    auto view = makeFieldView(control, *panel_);
    if (!view) return nullptr;
    wxWindow& native = view->native();
    if (dynamic_cast<wxControl*>(&native) != nullptr &&
        dynamic_cast<wxTextCtrl*>(&native) == nullptr && control.focusable())
        native.Bind(wxEVT_SET_FOCUS, [&control](wxFocusEvent& event) {
            control.window()->userFocused(control);
            event.Skip();
        });
    // Tab goes through the controls in the order of the model, whenever they were made.
    const auto& all = window_.controls();
    const auto next = std::find_if(std::find(all.begin(), all.end(), &control), all.end(),
                                   [&](const Control* later) { return viewOf(*later) != nullptr; });
    if (next != all.end()) native.MoveBeforeInTabOrder(&viewOf(**next)->native());
    return views_.emplace(&control, std::move(view)).first->second.get();
}

FieldView* ScreenFrame::viewOf(const Control& control) const {
    const auto found = views_.find(&control);
    return found == views_.end() ? nullptr : found->second.get();
}

wxWindow* ScreenFrame::nativeOf(const Control& control) const {
    if (&control == &window_.commandBars.filterBox) return filterBox_;
    const FieldView* view = viewOf(control);
    return view == nullptr ? nullptr : &view->native();
}

void ScreenFrame::applyWindow() {
    windowChanged_ = true;
    if (syncing_) return;
    const bool iconic = window_.state() == WindowState::minimized;
    if (IsShown() && iconic != iconic_) {
        iconic_ = iconic;
        awaitsIconic_ = true;
        Iconize(iconic);
    }
    if (window_.state() != WindowState::normal) return;
    const Rect& place = window_.place();
    const wxRect pixels(pixelsOf(*this, place.left), pixelsOf(*this, place.top),
                        pixelsOf(*this, place.width), pixelsOf(*this, place.height));
    appliedSize_ = pixels.GetSize();
    if (GetRect() != pixels) SetSize(pixels);
}

bool ScreenFrame::isSettled() const {
    const bool iconic = window_.state() == WindowState::minimized;
    return iconic == IsIconized() && (iconic || hasItsSize(*this));
}

Rect ScreenFrame::clientRect() const {
    const wxSize size = GetClientSize();
    return {0, 0, twipsOf(*this, size.x), twipsOf(*this, size.y)};
}

void ScreenFrame::controlChanged(Control& control) {
    if (&control == &window_.commandBars.filterBox) {
        barsChanged_ = true;
    } else if (&control == window_.find(panelName)) {
        // Its size is the frame's business, its colour the window's.
        everythingChanged();
        windowChanged_ = true;
    } else {
        changedControls_.insert(&control);
    }
}

void ScreenFrame::everythingChanged() {
    changedControls_.insert(window_.controls().begin(), window_.controls().end());
}

void ScreenFrame::barsChanged() {
    barsChanged_ = true;
}

void ScreenFrame::focusChanged() {
    focusChanged_ = true;
}

void ScreenFrame::sync() {
    if (released_ || syncing_) return;
    syncing_ = true;
    if (windowChanged_) {
        windowChanged_ = false;
        if (GetTitle() != wxText(window_.caption())) SetTitle(wxText(window_.caption()));
        if (const Control* panel = window_.find(panelName))
            panel_->SetBackgroundColour(colourOf(panel->backColor()));
    }
    syncFields();
    if (barsChanged_) {
        barsChanged_ = false;
        syncMenus();
        syncToolbar();
    }
    syncing_ = false;
    syncFocus();
}

void ScreenFrame::prepare() {
    if (released_ || syncing_ || IsShown()) return;
    syncing_ = true;
    syncFields();
    for (const auto& [control, view] : views_)
        if (auto* grid = dynamic_cast<GridView*>(&view->native())) grid->prepare();
    syncing_ = false;
}

void ScreenFrame::syncFields() {
    const std::set<const Control*> changed = std::move(changedControls_);
    changedControls_.clear();
    for (Control* control : window_.controls()) {
        if (!changed.contains(control)) continue;
        FieldView* view = viewOf(*control);
        // Native controls take long to make, and most lists have only some of the fields.
        if (view == nullptr && control->visible()) view = createField(*control);
        if (view != nullptr) view->sync();
    }
}

void ScreenFrame::syncFocus() {
    if (!focusChanged_) return;
    focusChanged_ = false;
    if (IsShown()) takeFocus();
}

void ScreenFrame::takeFocus() {
    wxWindow* native = window_.focus() == nullptr ? nullptr : nativeOf(*window_.focus());
    if (native != nullptr) native->SetFocus();
}

void ScreenFrame::runLoop() {
    wxGUIEventLoop loop;
    loop_ = &loop;
    if (!window_.isClosed()) loop.Run();
    loop_ = nullptr;
    // Nothing but a request to quit ends the loop before the window is closed.
    hostQuits_ = !window_.isClosed();
}

void ScreenFrame::release() {
    released_ = true;
    changedControls_.clear();
    panel_->DestroyChildren();
    views_.clear();
    changeOwner(*this, owner_);
    Destroy();
    // Not before: a box that asks whether to save would go away at once.
    if (hostQuits_) askHostToQuit();
}

void ScreenFrame::onClose(wxCloseEvent& event) {
    if (released_) {
        event.Skip();
        return;
    }
    event.Veto();
    window_.requestClose();
    if (loop_ != nullptr) loop_->ScheduleExit();
}

void ScreenFrame::onResize() {
    if (released_ || !IsShown()) return;
    // What comes before the desktop's answer is about the state before.
    if (awaitsIconic_ && IsIconized() != iconic_) return;
    awaitsIconic_ = false;
    iconic_ = IsIconized();
    const WindowState state = IsIconized()    ? WindowState::minimized
                              : IsMaximized() ? WindowState::maximized
                                              : WindowState::normal;
    const wxRect now = GetRect();
    if (now.GetSize() != appliedSize_ || state != window_.state()) {
        appliedSize_ = now.GetSize();
        window_.userPlaced({twipsOf(*this, now.x), twipsOf(*this, now.y), twipsOf(*this, now.width),
                            twipsOf(*this, now.height)},
                           state);
    } else if (GetClientSize() == laidOutSize_) {
        return;
    } else if (window_.commandBars.onResize) {
        // Decorations and bars may have taken room that the window did not have before it showed.
        window_.commandBars.onResize();
    }
    laidOutSize_ = GetClientSize();
    everythingChanged();
    sync();
}

bool ScreenFrame::handleKey(int keyCode, int modifiers) {
    if (window_.dispatchKey(keyCode, modifiers)) return true;
    Control* focused = window_.focus();
    if (released_ || window_.isClosed() || focused == nullptr) return true;
    if (keyCode == key::enter) {
        window_.dispatchCharacter(static_cast<char32_t>(keyCode));
        return true;
    }
    // The native text box has no such thing as taking back what was typed.
    const bool undo = keyCode == 'Z' && modifiers == modifier::control;
    if (dynamic_cast<RecordGrid*>(focused) != nullptr || undo)
        return focused->defaultKey(keyCode, modifiers);
    return false;
}

void ScreenFrame::onKey(wxKeyEvent& event) {
    // What a window above this one, a nested screen or the help, has no use for is not meant for
    // this one.
    if (wxGetTopLevelParent(wxDynamicCast(event.GetEventObject(), wxWindow)) != this)
        return event.Skip();
    if (released_) return event.Skip();
    // An input method that has begun a text has the keys first.
    wxWindow* const entry = window_.focus() == nullptr ? nullptr : nativeOf(*window_.focus());
    if (entry != nullptr && isComposing(*entry)) return event.Skip();
    const int modifiers = modelModifiers(event);
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    const int letter = (modifiers & modifier::control) != 0 ? letterKey(character) : 0;
    const int keyCode = letter != 0 ? letter : modelKey(event.GetKeyCode());
    // An open menu of the combo has the keys for itself, and Alt belongs to the menu bar.
    const int loopsBefore = modalLoopsBegun;
    const bool used = keyCode != 0 && (modifiers & modifier::alt) == 0 &&
                      (handleKey(keyCode, modifiers) || modalLoopsBegun != loopsBefore);
    if (window_.isClosed() && loop_ != nullptr) loop_->ScheduleExit();
    // At once, not when idle: the next key may be waiting already, and it is meant for the control
    // that has the focus now.
    if (used)
        sync();
    else
        event.Skip();
}

void ScreenFrame::popupLater(const Menu& menu) {
    const int id = menu.id;
    CallAfter([this, id] {
        const Menu* shown = released_ ? nullptr : window_.commandBars.contextMenu(id);
        if (shown == nullptr) return;
        wxMenu popup;
        for (const ActionPlace& place : shown->items) {
            const Action* action = window_.commandBars.find(place.actionId);
            if (action != nullptr) appendEntry(popup, place, *action);
        }
        PopupMenu(&popup);
    });
}

}  // namespace catalogador
