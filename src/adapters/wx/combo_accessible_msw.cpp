#include <wx/access.h>
#include <wx/window.h>

#include "adapters/wx/appearance.h"
#include "adapters/wx/combo_accessible.h"
#include "adapters/wx/field_accessible_msw.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

/// A combo with its entries as children, numbered from 1.
class EntriesAccessible : public wxAccessible {
  public:
    EntriesAccessible(wxWindow* window, ComboBox& combo) : wxAccessible(window), combo_(combo) {}

    wxAccStatus GetChildCount(int* count) override {
        *count = combo_.listCount();
        return wxACC_OK;
    }
    wxAccStatus GetChild(int /*number*/, wxAccessible** child) override {
        *child = nullptr;
        return wxACC_OK;
    }
    wxAccStatus GetName(int number, wxString* name) override {
        if (number == 0) {
            *name = GetWindow()->GetLabel();
            return wxACC_OK;
        }
        if (number > combo_.listCount()) return wxACC_INVALID_ARG;
        *name = textOf(number - 1);
        return wxACC_OK;
    }
    wxAccStatus GetValue(int number, wxString* value) override {
        if (number != 0) return wxACC_NOT_IMPLEMENTED;
        *value = textOf(current());
        return wxACC_OK;
    }
    wxAccStatus GetRole(int number, wxAccRole* role) override {
        *role = number == 0 ? wxROLE_SYSTEM_COMBOBOX : wxROLE_SYSTEM_LISTITEM;
        return wxACC_OK;
    }
    wxAccStatus GetState(int number, long* state) override {
        const bool focused = combo_.hasFocus();
        *state = combo_.enabled() ? wxACC_STATE_SYSTEM_FOCUSABLE : wxACC_STATE_SYSTEM_UNAVAILABLE;
        if (number == 0) {
            *state |=
                combo_.listOpen() ? wxACC_STATE_SYSTEM_EXPANDED : wxACC_STATE_SYSTEM_COLLAPSED;
            if (focused) *state |= wxACC_STATE_SYSTEM_FOCUSED;
            return wxACC_OK;
        }
        *state |= wxACC_STATE_SYSTEM_SELECTABLE;
        if (number - 1 == current()) *state |= wxACC_STATE_SYSTEM_SELECTED;
        return wxACC_OK;
    }
    wxAccStatus GetDescription(int number, wxString* description) override {
        if (number != 0) return wxACC_NOT_IMPLEMENTED;
        *description = fieldDescription(combo_.required(), wxText(combo_.problem()));
        return wxACC_OK;
    }

  private:
    [[nodiscard]] int current() const {
        return combo_.listOpen() ? combo_.marked() : combo_.listIndex();
    }
    [[nodiscard]] wxString textOf(int index) const {
        if (index < 0 || index >= combo_.listCount()) return {};
        return wxText(combo_.items()[static_cast<std::size_t>(index)].text);
    }

    ComboBox& combo_;
};

class MswComboAccessible : public ComboAccessible {
  public:
    MswComboAccessible(wxWindow& window, ComboBox& combo) : window_(window), combo_(combo) {
        // The window owns it.
        window.SetAccessible(new EntriesAccessible(&window, combo));
    }

    void changed() override {
        const int entry = combo_.listOpen() ? combo_.marked() : combo_.listIndex();
        const wxString description = fieldDescription(combo_.required(), wxText(combo_.problem()));
        if (description != description_) {
            description_ = description;
            tell(wxACC_EVENT_OBJECT_DESCRIPTIONCHANGE);
        }
        if (combo_.listOpen() != open_) {
            open_ = combo_.listOpen();
            tell(wxACC_EVENT_OBJECT_STATECHANGE);
        }
        if (entry == entry_) return;
        entry_ = entry;
        tell(wxACC_EVENT_OBJECT_VALUECHANGE);
    }

  private:
    void tell(int event) { wxAccessible::NotifyEvent(event, &window_, wxOBJID_CLIENT, 0); }

    wxWindow& window_;
    ComboBox& combo_;
    wxString description_;
    bool open_ = false;
    int entry_ = -1;
};

}  // namespace

std::unique_ptr<ComboAccessible> ComboAccessible::of(wxWindow& window, ComboBox& combo) {
    return std::make_unique<MswComboAccessible>(window, combo);
}

}  // namespace catalogador::wx
