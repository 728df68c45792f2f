#include <gtk/gtk.h>

#include <utility>

#include "adapters/wx/native_focus.h"
#include "platform/controls/keys.h"

namespace catalogador::wx {

namespace {

GtkToolbar* nativeToolbar(GtkWidget* widget) {
    if (GTK_IS_TOOLBAR(widget)) return GTK_TOOLBAR(widget);
    return GTK_IS_BIN(widget) ? nativeToolbar(gtk_bin_get_child(GTK_BIN(widget))) : nullptr;
}

/// The key of the model, 0 for one that the native toolbar leaves alone.
int modelKey(guint keyval) {
    constexpr std::pair<guint, int> keys[] = {
        {GDK_KEY_Left, key::left},     {GDK_KEY_Right, key::right},    {GDK_KEY_Up, key::up},
        {GDK_KEY_Down, key::down},     {GDK_KEY_Home, key::home},      {GDK_KEY_End, key::end},
        {GDK_KEY_Return, key::enter},  {GDK_KEY_KP_Enter, key::enter}, {GDK_KEY_space, key::space},
        {GDK_KEY_Escape, key::escape}, {GDK_KEY_Tab, key::tab},        {GDK_KEY_F6, key::f6}};
    for (const auto& [native, model] : keys)
        if (native == keyval) return model;
    return 0;
}

gboolean onKey(GtkWidget* /*button*/, GdkEventKey* event, gpointer keys) {
    const int code = modelKey(event->keyval);
    if (code == 0 || (event->state & (GDK_CONTROL_MASK | GDK_MOD1_MASK)) != 0) return FALSE;
    const int modifiers = (event->state & GDK_SHIFT_MASK) != 0 ? modifier::shift : modifier::none;
    return (*static_cast<const KeyHandler*>(keys))(code, modifiers) ? TRUE : FALSE;
}

void takeKeysOf(GtkWidget* button, const KeyHandler& keys) {
    constexpr const char* taken = "catalogador-keys";
    if (g_object_get_data(G_OBJECT(button), taken) != nullptr) return;
    auto* data = const_cast<KeyHandler*>(&keys);
    g_object_set_data(G_OBJECT(button), taken, data);
    g_signal_connect(button, "key-press-event", G_CALLBACK(onKey), data);
}

}  // namespace

void focusButton(wxToolBar& toolbar, int id, const KeyHandler& keys) {
    const int place = id == 0 ? wxNOT_FOUND : toolbar.GetToolPos(id);
    GtkToolbar* native = nativeToolbar(toolbar.GetHandle());
    if (place == wxNOT_FOUND || native == nullptr) return;
    GtkToolItem* item = gtk_toolbar_get_nth_item(native, place);
    if (item == nullptr) return;
    GtkWidget* button = gtk_bin_get_child(GTK_BIN(item));
    if (button == nullptr) return;
    takeKeysOf(button, keys);
    gtk_widget_grab_focus(button);
}

void keepScrollBars(wxWindow& window) {
    GtkWidget* native = window.GetHandle();
    if (GTK_IS_SCROLLED_WINDOW(native))
        gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(native), FALSE);
}

bool menuIsOpen() {
    GtkWidget* grabbing = gtk_grab_get_current();
    return grabbing != nullptr && GTK_IS_MENU_SHELL(grabbing);
}

}  // namespace catalogador::wx
