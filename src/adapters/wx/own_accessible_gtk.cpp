#include "adapters/wx/own_accessible_gtk.h"

namespace catalogador::wx {

namespace {

constexpr const char* objectKey = "catalogador-accessible";
AtkObject* (*toolkitsAccessible)(GtkWidget* widget) = nullptr;

AtkObject* accessibleOf(GtkWidget* widget) {
    if (gpointer own = g_object_get_data(G_OBJECT(widget), objectKey)) return ATK_OBJECT(own);
    return toolkitsAccessible(widget);
}

/// Replaces the object by which screen readers know a widget.
void useAccessible(GtkWidget* widget, AtkObject* object) {
    // The toolkit's windows share one class; those without an object keep what they had.
    GtkWidgetClass* klass = GTK_WIDGET_GET_CLASS(widget);
    if (klass->get_accessible != accessibleOf) {
        toolkitsAccessible = klass->get_accessible;
        klass->get_accessible = accessibleOf;
    }
    g_object_set_data_full(G_OBJECT(widget), objectKey, g_object_ref(object), g_object_unref);
}

}  // namespace

OwnAccessible::OwnAccessible(GtkWidget* widget, GType type, AtkRole role)
    : object_(ATK_OBJECT(g_object_new(type, "widget", widget, nullptr))) {
    atk_object_initialize(object_, widget);
    object_->role = role;
    useAccessible(widget, object_);
}

OwnAccessible::~OwnAccessible() {
    if (active_ != nullptr) g_object_unref(active_);
    g_object_unref(object_);
}

void OwnAccessible::tellActive(AtkObject* child) {
    if (active_ != nullptr) g_object_unref(active_);
    active_ = child;
    g_signal_emit_by_name(object_, "active-descendant-changed", active_);
}

AtkObject* newChild(GType type, gpointer owner, int row, int column, AtkRole role) {
    ChildObject* child = childOf(g_object_new(type, nullptr));
    child->owner = ATK_OBJECT(owner);
    g_object_add_weak_pointer(G_OBJECT(owner), reinterpret_cast<gpointer*>(&child->owner));
    child->row = row;
    child->column = column;
    child->parent.role = role;
    atk_object_set_parent(&child->parent, ATK_OBJECT(owner));
    return &child->parent;
}

void finalizeChild(GObject* object, GType type) {
    ChildObject* child = childOf(object);
    if (child->owner != nullptr)
        g_object_remove_weak_pointer(G_OBJECT(child->owner),
                                     reinterpret_cast<gpointer*>(&child->owner));
    G_OBJECT_CLASS(classAbove(type))->finalize(object);
}

}  // namespace catalogador::wx
