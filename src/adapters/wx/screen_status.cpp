#include <wx/settings.h>
#include <wx/stattext.h>

#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/grid_view.h"
#include "adapters/wx/native_focus.h"
#include "adapters/wx/screen_frame.h"

namespace catalogador::wx {

void ScreenFrame::syncStatus() {
    if (status_ == nullptr) {
        status_ = new wxStaticText(panel_, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
        status_->SetName("status");
        readAsStatus(*status_);
    }
    const wxString text = wxText(window_.statusText());
    if (status_->GetLabelText() != text) status_->SetLabelText(text);
    const wxColour background = panel_->GetBackgroundColour();
    const wxColour colour =
        readableOn(background, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    if (status_->GetForegroundColour() != colour) status_->SetForegroundColour(colour);
    const wxSize room = panel_->GetClientSize();
    const int height = statusHeight(*panel_);
    const int indent = FromDIP(statusIndent);
    const wxRect place(indent, room.y - height, std::max(0, room.x - 2 * indent), height);
    if (status_->GetRect() != place) status_->SetSize(place);
    // Fields that leave no room to the list may reach down to here.
    const GridView* grid = gridView();
    const bool fits = grid == nullptr || grid->GetSize().y > 0;
    if (status_->IsShown() != fits) status_->Show(fits);
}

void ScreenFrame::markButton() {
    const int current = window_.commandBars.buttons.current();
    if (current == markedButton_) return;
    markedButton_ = current;
    focusButton(*toolbar_, current, toolbarKeys_);
}

}  // namespace catalogador::wx
