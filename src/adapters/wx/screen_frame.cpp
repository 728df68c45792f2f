#include "adapters/wx/screen_frame.h"

#include <wx/evtloop.h>
#include <wx/iconbndl.h>
#include <wx/menu.h>

#include <algorithm>

#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/field_layout.h"
#include "adapters/wx/grid_view.h"
#include "adapters/wx/host_windows.h"
#include "adapters/wx/icons.h"
#include "adapters/wx/window_answer.h"
#include "platform/controls/record_grid.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

constexpr int applicationIcon = 18;
/// How far from the row's left edge its context menu opens, in pixels at 96 dpi.
constexpr int menuIndent = 24;

}  // namespace

ScreenFrame::ScreenFrame(Window& window, wxWindow* below)
    : wxFrame(below, wxID_ANY, wxText(window.caption()), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE | (below != nullptr ? wxFRAME_FLOAT_ON_PARENT : 0)),
      window_(window) {
    owner_ = changeOwner(*this, nullptr);
    SetIcons(wxIconBundle(iconBundle(applicationIcon).GetIcon(FromDIP(wxSize(16, 16)))));
    panel_ = new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS);
    toolbar_ = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_HORZ_TEXT | wxTB_NODIVIDER);
    toolbarKeys_ = [this](int keyCode, int modifiers) {
        if (released_) return false;
        const bool used = handleKey(keyCode, modifiers);
        if (window_.isClosed() && loop_ != nullptr) loop_->ScheduleExit();
        sync();
        return used;
    };
    everythingChanged();
    applyWindow();
    bindWindowEvents();
    bindMenuEvents();
}

void ScreenFrame::bindWindowEvents() {
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
        if (!event.GetActive() && !released_) closeLists();
    });
    Bind(wxEVT_MOVE, [this](wxMoveEvent& event) {
        if (!released_) closeLists();
        event.Skip();
    });
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        sync();
        event.Skip();
    });
}

void ScreenFrame::bindMenuEvents() {
    Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
        // Not at once: a screen reader that asked for the action waits for the answer to its
        // request, and a box that the action shows would keep it waiting.
        CallAfter([this, id = event.GetId()] {
            if (released_) return;
            closeLists();
            window_.commandBars.execute(id);
            sync();
        });
    });
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        if (!released_) closeLists();
        event.Skip();
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
    if (const Label* caption = captionOf(control))
        nameForReaders(native, wxText(replaceText(caption->caption(), "&", "", Compare::binary)));
    // Tab goes through the controls in the order of the model, whenever they were made.
    const auto& all = window_.controls();
    const auto next = std::find_if(std::find(all.begin(), all.end(), &control), all.end(),
                                   [&](const Control* later) { return viewOf(*later) != nullptr; });
    if (next != all.end()) native.MoveBeforeInTabOrder(&viewOf(**next)->native());
    return views_.emplace(&control, std::move(view)).first->second.get();
}

const Label* ScreenFrame::captionOf(const Control& control) const {
    if (dynamic_cast<const TextBox*>(&control) == nullptr &&
        dynamic_cast<const ComboBox*>(&control) == nullptr)
        return nullptr;
    const Label* caption = nullptr;
    for (const Control* other : window_.controls()) {
        if (other == &control) break;
        if (const auto* label = dynamic_cast<const Label*>(other)) caption = label;
    }
    return caption;
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
    } else if (&control == window_.panel()) {
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
        if (const Control* panel = window_.panel())
            panel_->SetBackgroundColour(colourOf(panel->backColor()));
    }
    syncFields();
    syncStatus();
    if (barsChanged_) {
        barsChanged_ = false;
        syncMenus();
        syncToolbar();
        markButton();
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
    // The panel gets its room a moment after the window has its own.
    if (!changed.empty() || panel_->GetClientSize() != fieldRoom_) layOut();
}

void ScreenFrame::layOut() {
    std::vector<FieldView*> visible;
    for (const Control* control : window_.controls()) {
        FieldView* view = control->visible() ? viewOf(*control) : nullptr;
        if (view != nullptr) visible.push_back(view);
    }
    fieldRoom_ = panel_->GetClientSize();
    layOutFields(visible, fieldRoom_);
}

void ScreenFrame::syncFocus() {
    if (!focusChanged_) return;
    focusChanged_ = false;
    if (!IsShown()) return;
    takeFocus();
    // A native text box selects everything when it gets the focus, whatever the model has selected.
    Control* focused = window_.focus();
    FieldView* view = focused == nullptr ? nullptr : viewOf(*focused);
    if (view != nullptr && dynamic_cast<TextBox*>(focused) != nullptr) view->sync();
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

void ScreenFrame::closeLists() {
    for (Control* control : window_.controls())
        if (auto* combo = dynamic_cast<ComboBox*>(control)) combo->closeList(false);
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
        if (state == WindowState::normal)
            normalSize_ = {window_.place().width, window_.place().height};
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

GridView* ScreenFrame::gridView() const {
    for (const auto& [control, view] : views_)
        if (auto* grid = dynamic_cast<GridView*>(&view->native())) return grid;
    return nullptr;
}

wxRect ScreenFrame::selectedRowOnScreen() const {
    const GridView* grid = gridView();
    return grid == nullptr ? wxRect() : grid->selectedRowOnScreen();
}

void ScreenFrame::popupLater(const Menu& menu) {
    const int id = menu.id;
    CallAfter([this, id, atRow = menuAtRow_] {
        const Menu* shown = released_ ? nullptr : window_.commandBars.contextMenu(id);
        if (shown == nullptr) return;
        wxMenu popup;
        for (const ActionPlace& place : shown->items) {
            const Action* action = window_.commandBars.find(place.actionId);
            if (action != nullptr) appendEntry(popup, place, *action);
        }
        const wxRect row = selectedRowOnScreen();
        if (atRow && !row.IsEmpty())
            PopupMenu(&popup,
                      ScreenToClient(row.GetBottomLeft() + wxPoint(FromDIP(menuIndent), 0)));
        else
            PopupMenu(&popup);
    });
}

}  // namespace catalogador::wx
