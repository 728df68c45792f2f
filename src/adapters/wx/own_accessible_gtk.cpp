#include "adapters/wx/own_accessible_gtk.h"

namespace catalogador::wx {

namespace {

constexpr const char* objectKey = "catalogador-accessible";
AtkObject* (*toolkitsAccessible)(GtkWidget* widget) = nullptr;

AtkObject* accessibleOf(GtkWidget* widget) {
    if (gpointer own = g_object_get_data(G_OBJECT(widget), objectKey)) return ATK_OBJECT(own);
    return toolkitsAccessible(widget);
}

}  // namespace

void useAccessible(GtkWidget* widget, AtkObject* object) {
    // The toolkit's windows share one class; those without an object keep what they had.
    GtkWidgetClass* klass = GTK_WIDGET_GET_CLASS(widget);
    if (klass->get_accessible != accessibleOf) {
        toolkitsAccessible = klass->get_accessible;
        klass->get_accessible = accessibleOf;
    }
    g_object_set_data_full(G_OBJECT(widget), objectKey, g_object_ref(object), g_object_unref);
}

}  // namespace catalogador::wx
