#include <wx/menu.h>

#include <algorithm>

#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/icons.h"
#include "adapters/wx/menu_bindings.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/text_input.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

/// A toolbar knows no mnemonics.
wxString shownCaption(const Action& action) {
    return wxText(replaceText(action.caption, "&", "", Compare::binary));
}

}  // namespace

void ScreenFrame::appendEntry(wxMenu& menu, const ActionPlace& place, const Action& action) const {
    if (place.beginGroup) menu.AppendSeparator();
    auto* item =
        new wxMenuItem(&menu, action.id, wxText(action.caption), wxText(action.description));
    item->SetBitmap(iconBundle(action.icon));
    menu.Append(item)->Enable(action.enabled);
    for (const KeyBinding& binding : window_.commandBars.bindings)
        if (binding.actionId == action.id) showBinding(*item, binding);
}

wxString ScreenFrame::tooltipOf(const Action& action) const {
    // Nothing but its caption tells whether a filter is applied, and its button shows none.
    const wxString text =
        action.id == action::filter ? shownCaption(action) : wxText(action.tooltip);
    wxString keys;
    for (const KeyBinding& binding : window_.commandBars.bindings) {
        if (binding.actionId != action.id || (binding.modifiers & bindingControl) == 0) continue;
        keys = (binding.modifiers & bindingShift) != 0 ? "Ctrl+Shift+" : "Ctrl+";
        keys += wxString(wxUniChar(binding.keyCode));
    }
    return keys.empty() ? text : text + " (" + keys + ")";
}

void ScreenFrame::createMenus() {
    auto* bar = new wxMenuBar;
    for (const Menu& menu : window_.commandBars.menus) {
        auto* native = new wxMenu;
        for (const ActionPlace& place : menu.items) {
            const Action* action = window_.commandBars.find(place.actionId);
            if (action != nullptr) appendEntry(*native, place, *action);
        }
        const Action* title = window_.commandBars.find(menu.actionId);
        bar->Append(native, title == nullptr ? wxText(menu.title) : wxText(title->caption));
    }
    SetMenuBar(bar);
}

void ScreenFrame::syncMenus() {
    if (window_.commandBars.menus.empty()) return;
    if (GetMenuBar() == nullptr) createMenus();
    for (const Action& action : window_.commandBars.actions())
        if (wxMenuItem* item = GetMenuBar()->FindItem(action.id)) {
            if (item->IsEnabled() != action.enabled) item->Enable(action.enabled);
        }
}

std::string ScreenFrame::toolbarSignature() const {
    std::string signature;
    const auto add = [&](const ActionPlace& place) {
        if (const Action* action = window_.commandBars.find(place.actionId))
            signature += action->caption + "\n" + decimalText(action->icon) + "\n";
    };
    std::ranges::for_each(window_.commandBars.toolbar, add);
    std::ranges::for_each(window_.commandBars.quickAccess, add);
    return signature + (window_.commandBars.filterBox.visible() ? "filter" : "");
}

void ScreenFrame::syncToolbar() {
    if (const std::string wanted = toolbarSignature(); wanted != shownToolbar_) {
        shownToolbar_ = wanted;
        rebuildToolbar();
    }
    for (const Action& action : window_.commandBars.actions()) {
        if (toolbar_->FindById(action.id) == nullptr) continue;
        if (toolbar_->GetToolEnabled(action.id) != action.enabled)
            toolbar_->EnableTool(action.id, action.enabled);
        if (toolbar_->GetToolState(action.id) != action.checked)
            toolbar_->ToggleTool(action.id, action.checked);
    }
    if (filterBox_ != nullptr) syncText(*filterBox_, window_.commandBars.filterBox);
}

void ScreenFrame::rebuildToolbar() {
    filterBox_ = nullptr;
    toolbar_->ClearTools();
    for (const ActionPlace& place : window_.commandBars.toolbar) addTool(place);
    if (!window_.commandBars.quickAccess.empty()) toolbar_->AddStretchableSpace();
    for (const ActionPlace& place : window_.commandBars.quickAccess) addTool(place);
    toolbar_->Realize();
    nameToolbar();
    focusChanged_ = true;
}

void ScreenFrame::addTool(const ActionPlace& place) {
    const CommandBars& bars = window_.commandBars;
    const Action* action = bars.find(place.actionId);
    if (action == nullptr) return;
    if (place.beginGroup) toolbar_->AddSeparator();
    if (action->id == action::filterBox) {
        if (!bars.filterBox.visible()) return;
        filterBox_ = new wxTextCtrl(toolbar_, wxID_ANY, "", wxDefaultPosition,
                                    FromDIP(wxSize(bars.filterBoxWidth, -1)));
        bindTextInput(*filterBox_, window_.commandBars.filterBox);
        if (const Action* filter = bars.find(action::filter))
            nameForReaders(*filterBox_, wxText(filter->tooltip));
        toolbar_->AddControl(filterBox_);
        return;
    }
    const wxItemKind kind = action->checked ? wxITEM_CHECK : wxITEM_NORMAL;
    toolbar_->AddTool(action->id, place.showCaption ? shownCaption(*action) : wxString(),
                      iconBundle(action->icon), wxBitmapBundle(), kind, tooltipOf(*action),
                      wxText(action->description));
}

void ScreenFrame::nameToolbar() {
    std::vector<wxString> names;
    const auto add = [&](const ActionPlace& place) {
        const Action* action = window_.commandBars.find(place.actionId);
        if (action == nullptr) return;
        if (place.beginGroup) names.emplace_back();
        const bool box = place.actionId == action::filterBox;
        if (!box || filterBox_ != nullptr)
            names.push_back(box ? wxString() : shownCaption(*action));
    };
    std::ranges::for_each(window_.commandBars.toolbar, add);
    if (!window_.commandBars.quickAccess.empty()) names.emplace_back();
    std::ranges::for_each(window_.commandBars.quickAccess, add);
    nameForReaders(*toolbar_, wxText(window_.commandBars.groupCaption), names);
}

void ScreenFrame::findOverlaps(std::vector<std::string>& found) const {
    std::vector<const FieldView*> shown;
    for (const Control* control : window_.controls()) {
        const FieldView* view = control->visible() ? viewOf(*control) : nullptr;
        if (view == nullptr) continue;
        for (const FieldView* other : shown)
            if (view->native().GetRect().Intersects(other->native().GetRect()))
                found.push_back(control->name() + " covers " + other->control().name());
        shown.push_back(view);
    }
}

std::vector<std::string> ScreenFrame::differences() const {
    std::vector<std::string> found;
    findOverlaps(found);
    if (GetTitle() != wxText(window_.caption())) found.emplace_back("the title differs");
    for (const Control* control : window_.controls()) {
        if (const FieldView* view = viewOf(*control))
            view->describeDifferences(found);
        else if (control->visible() && control != window_.panel())
            found.push_back(control->name() + ": is not shown at all");
    }
    for (const Action& action : window_.commandBars.actions()) {
        const std::string name = "action " + decimalText(action.id);
        const wxMenuItem* item =
            GetMenuBar() == nullptr ? nullptr : GetMenuBar()->FindItem(action.id);
        if (item != nullptr && item->IsEnabled() != action.enabled)
            found.push_back(name + " is enabled otherwise in the menu");
        if (toolbar_->FindById(action.id) == nullptr) continue;
        if (toolbar_->GetToolEnabled(action.id) != action.enabled)
            found.push_back(name + " is enabled otherwise in the toolbar");
        if (toolbar_->GetToolState(action.id) != action.checked)
            found.push_back(name + " is checked otherwise");
        if (toolbar_->GetToolShortHelp(action.id) != tooltipOf(action))
            found.push_back(name + " has another tooltip");
    }
    if (const std::string name = readersName(*toolbar_); name != window_.commandBars.groupCaption)
        found.push_back("the toolbar is called '" + name + "'");
    const bool boxShown = filterBox_ != nullptr;
    if (boxShown != window_.commandBars.filterBox.visible())
        found.emplace_back("the filter box is shown otherwise");
    return found;
}

}  // namespace catalogador::wx
