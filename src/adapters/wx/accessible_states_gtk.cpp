#include <gtk/gtk.h>

#include <map>

#include "adapters/wx/accessible_names.h"

namespace catalogador::wx {

namespace {

constexpr const char* requiredKey = "catalogador-required";
constexpr const char* invalidKey = "catalogador-invalid";

using States = AtkStateSet* (*)(AtkObject* object);

/// What the classes of the desktop's objects answered before they were asked through statesOf.
std::map<AtkObjectClass*, States>& statesBefore() {
    static std::map<AtkObjectClass*, States> before;
    return before;
}

AtkStateSet* statesOf(AtkObject* object) {
    AtkStateSet* states = statesBefore().at(ATK_OBJECT_GET_CLASS(object))(object);
    if (g_object_get_data(G_OBJECT(object), requiredKey) != nullptr)
        atk_state_set_add_state(states, ATK_STATE_REQUIRED);
    if (g_object_get_data(G_OBJECT(object), invalidKey) != nullptr)
        atk_state_set_add_state(states, ATK_STATE_INVALID_ENTRY);
    return states;
}

void setState(AtkObject* object, const char* key, AtkStateType state, bool on) {
    if ((g_object_get_data(G_OBJECT(object), key) != nullptr) == on) return;
    g_object_set_data(G_OBJECT(object), key, on ? object : nullptr);
    atk_object_notify_state_change(object, state, on ? TRUE : FALSE);
}

}  // namespace

void tellState(wxWindow& field, bool required, const wxString& problem) {
    AtkObject* object = gtk_widget_get_accessible(field.GetConnectWidget());
    const bool known = g_object_get_data(G_OBJECT(object), requiredKey) != nullptr ||
                       g_object_get_data(G_OBJECT(object), invalidKey) != nullptr;
    if (!known && !required && problem.empty()) return;
    AtkObjectClass* klass = ATK_OBJECT_GET_CLASS(object);
    if (klass->ref_state_set != statesOf) {
        statesBefore()[klass] = klass->ref_state_set;
        klass->ref_state_set = statesOf;
    }
    atk_object_set_description(object, problem.utf8_str());
    setState(object, requiredKey, ATK_STATE_REQUIRED, required);
    setState(object, invalidKey, ATK_STATE_INVALID_ENTRY, !problem.empty());
}

void readAsStatus(wxWindow& line) {
    atk_object_set_role(gtk_widget_get_accessible(line.GetHandle()), ATK_ROLE_STATUSBAR);
}

}  // namespace catalogador::wx
