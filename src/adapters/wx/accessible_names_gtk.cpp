#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/desktop_function.h"

namespace catalogador {

namespace {

// The toolkit hands names neither in nor out; the desktop's own functions do.

void* childOf(void* widget) {
    static const auto child = desktopFunction<void* (*)(void*)>("gtk_bin_get_child");
    return child == nullptr ? nullptr : child(widget);
}

void* accessibleOf(void* widget) {
    static const auto accessible = desktopFunction<void* (*)(void*)>("gtk_widget_get_accessible");
    return widget == nullptr || accessible == nullptr ? nullptr : accessible(widget);
}

void setName(void* widget, const wxString& name) {
    static const auto set = desktopFunction<void (*)(void*, const char*)>("atk_object_set_name");
    void* accessible = accessibleOf(widget);
    if (set != nullptr && accessible != nullptr) set(accessible, name.utf8_str());
}

}  // namespace

void nameForReaders(wxToolBar& toolbar, const wxString& name, const std::vector<wxString>& tools) {
    static const auto itemAt = desktopFunction<void* (*)(void*, int)>("gtk_toolbar_get_nth_item");
    void* native = childOf(toolbar.GetHandle());
    if (native == nullptr || itemAt == nullptr) return;
    setName(native, name);
    int number = 0;
    for (const wxString& tool : tools) {
        void* item = itemAt(native, number++);
        if (item == nullptr || tool.empty()) continue;
        setName(item, tool);
        // The item only holds the button that takes the focus.
        setName(childOf(item), tool);
    }
}

std::string readersName(const wxToolBar& toolbar) {
    static const auto get = desktopFunction<const char* (*)(void*)>("atk_object_get_name");
    void* accessible = accessibleOf(childOf(toolbar.GetHandle()));
    const char* name = get == nullptr || accessible == nullptr ? nullptr : get(accessible);
    return name == nullptr ? "" : name;
}

}  // namespace catalogador
