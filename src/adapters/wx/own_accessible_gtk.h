#pragma once
#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

namespace catalogador::wx {

/// Replaces the object by which screen readers know a widget. The widget keeps a reference to it.
void useAccessible(GtkWidget* widget, AtkObject* object);

/// What a class of that type is derived from.
inline gpointer classAbove(GType type) {
    return g_type_class_peek(g_type_parent(type));
}

}  // namespace catalogador::wx
