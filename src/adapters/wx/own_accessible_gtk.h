#pragma once
#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

namespace catalogador {

/// Has readers told of a widget by an object of the program's own, which the widget then holds.
void useAccessible(GtkWidget* widget, AtkObject* object);

/// What a class of that type is derived from.
inline gpointer classAbove(GType type) {
    return g_type_class_peek(g_type_parent(type));
}

}  // namespace catalogador
