#include <wx/app.h>
#include <wx/window.h>

#include "adapters/wx/combo_accessible.h"
#include "adapters/wx/own_accessible_gtk.h"

namespace catalogador::wx {

namespace {

/// The combo as the desktop's interface for screen readers knows it.
struct ComboObject {
    GtkWidgetAccessible parent;
    /// Null once the window is gone.
    ComboBox* combo;
};
struct ComboClass {
    GtkWidgetAccessibleClass parent;
};
GType comboType();
GType entryType();

ComboBox* comboOf(gpointer object) {
    return reinterpret_cast<ComboObject*>(object)->combo;
}

/// The entry that an open list marks, or else the chosen one.
int currentEntry(const ComboBox& combo) {
    return combo.listOpen() ? combo.marked() : combo.listIndex();
}

/// Null for an entry that is not there any more.
ComboBox* comboOfEntry(gpointer object) {
    const ChildObject* entry = childOf(object);
    ComboBox* combo = entry->owner == nullptr ? nullptr : comboOf(entry->owner);
    return combo != nullptr && entry->row < combo->listCount() ? combo : nullptr;
}

void entryFinalize(GObject* object) {
    finalizeChild(object, entryType());
}

const char* entryName(AtkObject* object) {
    const ComboBox* combo = comboOfEntry(object);
    if (combo == nullptr) return "";
    return combo->items()[static_cast<std::size_t>(childOf(object)->row)].text.c_str();
}

int entryIndex(AtkObject* object) {
    return childOf(object)->row;
}

AtkStateSet* entryStates(AtkObject* object) {
    AtkStateSet* states = ATK_OBJECT_CLASS(classAbove(entryType()))->ref_state_set(object);
    const ComboBox* combo = comboOfEntry(object);
    if (combo == nullptr) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    for (const AtkStateType state : {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE,
                                     ATK_STATE_SELECTABLE, ATK_STATE_TRANSIENT})
        atk_state_set_add_state(states, state);
    if (combo->listOpen()) atk_state_set_add_state(states, ATK_STATE_SHOWING);
    if (childOf(object)->row != currentEntry(*combo)) return states;
    atk_state_set_add_state(states, ATK_STATE_SELECTED);
    if (combo->hasFocus()) atk_state_set_add_state(states, ATK_STATE_FOCUSED);
    return states;
}

void entryClass(gpointer klass, gpointer /*data*/) {
    G_OBJECT_CLASS(klass)->finalize = entryFinalize;
    AtkObjectClass* object = ATK_OBJECT_CLASS(klass);
    object->get_name = entryName;
    object->get_index_in_parent = entryIndex;
    object->ref_state_set = entryStates;
}

GType entryType() {
    static const GType type =
        g_type_register_static_simple(ATK_TYPE_OBJECT, "CatalogadorEntry", sizeof(ChildClass),
                                      entryClass, sizeof(ChildObject), nullptr, GTypeFlags{});
    return type;
}

AtkObject* newEntry(gpointer owner, int index) {
    return newChild(entryType(), owner, index, 0, ATK_ROLE_LIST_ITEM);
}

int comboChildren(AtkObject* object) {
    const ComboBox* combo = comboOf(object);
    return combo == nullptr ? 0 : combo->listCount();
}

AtkObject* comboChild(AtkObject* object, int index) {
    return index < 0 || index >= comboChildren(object) ? nullptr : newEntry(object, index);
}

AtkStateSet* comboStates(AtkObject* object) {
    AtkStateSet* states = ATK_OBJECT_CLASS(classAbove(comboType()))->ref_state_set(object);
    const ComboBox* combo = comboOf(object);
    if (combo == nullptr) return states;
    for (const AtkStateType state : {ATK_STATE_EXPANDABLE, ATK_STATE_MANAGES_DESCENDANTS})
        atk_state_set_add_state(states, state);
    if (combo->listOpen()) atk_state_set_add_state(states, ATK_STATE_EXPANDED);
    if (combo->enabled()) atk_state_set_add_state(states, ATK_STATE_FOCUSABLE);
    if (combo->hasFocus()) atk_state_set_add_state(states, ATK_STATE_FOCUSED);
    return states;
}

void comboClass(gpointer klass, gpointer /*data*/) {
    AtkObjectClass* object = ATK_OBJECT_CLASS(klass);
    object->get_n_children = comboChildren;
    object->ref_child = comboChild;
    object->ref_state_set = comboStates;
}

gint selectionCount(AtkSelection* object) {
    const ComboBox* combo = comboOf(object);
    return combo == nullptr || currentEntry(*combo) < 0 ? 0 : 1;
}

AtkObject* selectionChild(AtkSelection* object, gint number) {
    if (number != 0 || selectionCount(object) == 0) return nullptr;
    return newEntry(object, currentEntry(*comboOf(object)));
}

gboolean selectionHas(AtkSelection* object, gint index) {
    const ComboBox* combo = comboOf(object);
    return combo != nullptr && index >= 0 && index == currentEntry(*combo) ? TRUE : FALSE;
}

gboolean selectionAdd(AtkSelection* object, gint index) {
    ComboBox* combo = comboOf(object);
    if (combo == nullptr || !combo->enabled() || index < 0 || index >= combo->listCount())
        return FALSE;
    combo->setListIndex(index);
    // The request came past the window system, so nothing else makes the window show the change.
    wxWakeUpIdle();
    return TRUE;
}

void selectionInterface(gpointer interface, gpointer /*data*/) {
    auto* selection = static_cast<AtkSelectionIface*>(interface);
    selection->get_selection_count = selectionCount;
    selection->ref_selection = selectionChild;
    selection->is_child_selected = selectionHas;
    selection->add_selection = selectionAdd;
}

GType comboType() {
    static const GType type = [] {
        const GType made = g_type_register_static_simple(
            GTK_TYPE_WIDGET_ACCESSIBLE, "CatalogadorCombo", sizeof(ComboClass), comboClass,
            sizeof(ComboObject), nullptr, GTypeFlags{});
        const GInterfaceInfo selection{selectionInterface, nullptr, nullptr};
        g_type_add_interface_static(made, ATK_TYPE_SELECTION, &selection);
        return made;
    }();
    return type;
}

class GtkComboAccessible : public ComboAccessible {
  public:
    GtkComboAccessible(GtkWidget* widget, ComboBox& combo)
        : combo_(combo), own_(widget, comboType(), ATK_ROLE_COMBO_BOX) {
        reinterpret_cast<ComboObject*>(own_.object())->combo = &combo;
    }
    ~GtkComboAccessible() override {
        reinterpret_cast<ComboObject*>(own_.object())->combo = nullptr;
    }
    GtkComboAccessible(const GtkComboAccessible&) = delete;
    GtkComboAccessible& operator=(const GtkComboAccessible&) = delete;

    void changed() override {
        if (combo_.listOpen() != open_) {
            open_ = combo_.listOpen();
            atk_object_notify_state_change(own_.object(), ATK_STATE_EXPANDED, open_ ? TRUE : FALSE);
        }
        const int entry = currentEntry(combo_);
        const bool focused = combo_.hasFocus();
        if (entry == entry_ && focused == focused_) return;
        entry_ = entry;
        focused_ = focused;
        g_signal_emit_by_name(own_.object(), "selection-changed");
        if (entry < 0 || !focused) return;
        own_.tellActive(newEntry(own_.object(), entry));
    }

  private:
    ComboBox& combo_;
    OwnAccessible own_;
    bool open_ = false;
    bool focused_ = false;
    int entry_ = -1;
};

}  // namespace

std::unique_ptr<ComboAccessible> ComboAccessible::of(wxWindow& window, ComboBox& combo) {
    return std::make_unique<GtkComboAccessible>(window.GetConnectWidget(), combo);
}

}  // namespace catalogador::wx
