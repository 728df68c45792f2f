#include <wx/menu.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/icons.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/text_input.h"
#include "platform/controls/keys.h"
#include "runtime/text.h"

namespace catalogador {

wxString ScreenFrame::menuLabel(const Action& action) const {
    wxString label = wxText(action.caption);
    for (const KeyBinding& binding : window_.commandBars.bindings) {
        if (binding.actionId != action.id) continue;

        if (binding.modifiers == bindingControl)
            label += "\tCtrl+" + wxString(wxUniChar(binding.keyCode));
        else if (binding.keyCode >= key::f1)
            label += wxString::Format("\tF%d", binding.keyCode - key::f1 + 1);
    }
    return label;
}

void ScreenFrame::createMenus() {
    auto* bar = new wxMenuBar;
    for (const Menu& menu : window_.commandBars.menus) {
        auto* native = new wxMenu;
        for (const ActionPlace& place : menu.items) {
            const Action* action = window_.commandBars.find(place.actionId);
            if (action == nullptr) continue;
            if (place.beginGroup) native->AppendSeparator();
            auto* item =
                new wxMenuItem(native, action->id, menuLabel(*action), wxText(action->description));
            item->SetBitmap(iconBundle(action->icon));
            native->Append(item);
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
    focusChanged_ = true;
}

void ScreenFrame::addTool(const ActionPlace& place) {
    const CommandBars& bars = window_.commandBars;
    const Action* action = bars.find(place.actionId);
    if (action == nullptr) return;
    if (place.beginGroup) toolbar_->AddSeparator();
    if (action->id == CommandBars::filterBoxAction) {
        if (!bars.filterBox.visible()) return;
        filterBox_ = new wxTextCtrl(toolbar_, wxID_ANY, "", wxDefaultPosition,
                                    FromDIP(wxSize(bars.filterBoxWidth, -1)));
        bindTextInput(*filterBox_, window_.commandBars.filterBox);
        toolbar_->AddControl(filterBox_);
        return;
    }
    const wxItemKind kind = action->checked ? wxITEM_CHECK : wxITEM_NORMAL;
    // A toolbar knows no mnemonics.
    const std::string caption = replaceText(action->caption, "&", "", Compare::binary);
    toolbar_->AddTool(action->id, place.showCaption ? wxText(caption) : wxString(),
                      iconBundle(action->icon), wxBitmapBundle(), kind, wxText(action->tooltip),
                      wxText(action->description));
}

std::vector<std::string> ScreenFrame::differences() const {
    std::vector<std::string> found;
    if (GetTitle() != wxText(window_.caption())) found.emplace_back("the title differs");
    for (const Control* control : window_.controls()) {
        if (const FieldView* view = viewOf(*control))
            view->describeDifferences(found);
        else if (control->visible() && control != window_.find(panelName))
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
    }
    const bool boxShown = filterBox_ != nullptr;
    if (boxShown != window_.commandBars.filterBox.visible())
        found.emplace_back("the filter box is shown otherwise");
    return found;
}

}  // namespace catalogador
