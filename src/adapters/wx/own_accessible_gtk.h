#pragma once
#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

namespace catalogador::wx {

/// What a class of that type is derived from.
inline gpointer classAbove(GType type) {
    return g_type_class_peek(g_type_parent(type));
}

/// An object of the program's own by which screen readers know a widget. The widget keeps a
/// reference to it as well, so that the object may outlive this owner.
class OwnAccessible {
  public:
    /// `type` is derived from GTK_TYPE_WIDGET_ACCESSIBLE.
    OwnAccessible(GtkWidget* widget, GType type, AtkRole role);
    ~OwnAccessible();
    OwnAccessible(const OwnAccessible&) = delete;
    OwnAccessible& operator=(const OwnAccessible&) = delete;

    [[nodiscard]] AtkObject* object() const { return object_; }
    /// Tells readers that the keys act on a child; takes over the caller's reference to it.
    void tellActive(AtkObject* child);

  private:
    AtkObject* object_;
    AtkObject* active_ = nullptr;
};

/// A child of such an object that is made when a reader asks for it. It lives as long as the reader
/// holds it, and may outlive its owner.
struct ChildObject {
    AtkObject parent;
    /// Null once the owner is gone.
    AtkObject* owner;
    int row;
    int column;
};
struct ChildClass {
    AtkObjectClass parent;
};

inline ChildObject* childOf(gpointer object) {
    return reinterpret_cast<ChildObject*>(object);
}

/// A new child, whose class is `type`; the caller owns it.
AtkObject* newChild(GType type, gpointer owner, int row, int column, AtkRole role);
/// To be called by the finalizer of that class.
void finalizeChild(GObject* object, GType type);

}  // namespace catalogador::wx
