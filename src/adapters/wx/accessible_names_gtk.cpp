#include <gtk/gtk.h>

#include "adapters/wx/accessible_names.h"

namespace catalogador::wx {

namespace {

void setName(GtkWidget* widget, const wxString& name) {
    AtkObject* object = widget == nullptr ? nullptr : gtk_widget_get_accessible(widget);
    if (object != nullptr) atk_object_set_name(object, name.utf8_str());
}

/// The toolkit's window holds the desktop's toolbar.
GtkToolbar* nativeToolbar(const wxToolBar& toolbar) {
    GtkWidget* child = gtk_bin_get_child(GTK_BIN(toolbar.GetHandle()));
    return GTK_IS_TOOLBAR(child) ? GTK_TOOLBAR(child) : nullptr;
}

}  // namespace

void nameForReaders(wxWindow& field, const wxString& name) {
    setName(field.GetConnectWidget(), name);
}

void nameForReaders(wxToolBar& toolbar, const wxString& name, const std::vector<wxString>& tools) {
    GtkToolbar* native = nativeToolbar(toolbar);
    if (native == nullptr) return;
    setName(GTK_WIDGET(native), name);
    int number = 0;
    for (const wxString& tool : tools) {
        GtkToolItem* item = gtk_toolbar_get_nth_item(native, number++);
        if (item == nullptr || tool.empty()) continue;
        setName(GTK_WIDGET(item), tool);
        // The item only holds the button that takes the focus.
        setName(gtk_bin_get_child(GTK_BIN(item)), tool);
    }
}

void readAsAlert(wxWindow& box, const wxString& text) {
    AtkObject* object = gtk_widget_get_accessible(box.GetHandle());
    atk_object_set_role(object, ATK_ROLE_ALERT);
    atk_object_set_description(object, text.utf8_str());
}

std::string readersName(const wxToolBar& toolbar) {
    GtkToolbar* native = nativeToolbar(toolbar);
    if (native == nullptr) return {};
    const char* name = atk_object_get_name(gtk_widget_get_accessible(GTK_WIDGET(native)));
    return name == nullptr ? "" : name;
}

}  // namespace catalogador::wx
