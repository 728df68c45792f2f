#include <gtk/gtk.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include "adapters/wx/appearance.h"
#include "adapters/wx/text_entry.h"
#include "adapters/wx/text_input.h"
#include "platform/controls/pasted_text.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

constexpr const char* watchName = "catalogador-entry";

/// What is known of a native entry; it lives as long as that.
struct EntryWatch {
    wxTextCtrl& native;
    TextBox& box;
    bool composing = false;
    /// While the program puts its own text in.
    bool shows = false;
};

EntryWatch* watchOf(const wxWindow& native) {
    return static_cast<EntryWatch*>(g_object_get_data(G_OBJECT(native.m_widget), watchName));
}

std::size_t roomIn(GtkEntry* entry, const TextBox& box) {
    if (box.maxLength() == 0) return std::numeric_limits<std::size_t>::max();
    const int room = box.maxLength() - static_cast<int>(gtk_entry_get_text_length(entry));
    return static_cast<std::size_t>(std::max(0, room));
}

extern "C" {

void entryInserts(GtkEditable* editable, const char* text, int length, int* position,
                  EntryWatch* watch) {
    if (watch->shows) return;
    const std::string whole(text,
                            length < 0 ? std::strlen(text) : static_cast<std::size_t>(length));
    // One character is typed; a blank that somebody types is one.
    const bool typed = lengthInCharacters(whole) < 2;
    const std::string line = typed && whole == " " ? whole : pastedText(whole);
    const FittedText fitted = fittedText(line, roomIn(GTK_ENTRY(editable), watch->box));
    if (fitted.text == whole) return;
    g_signal_stop_emission_by_name(editable, "insert-text");
    if (!fitted.text.empty())
        gtk_editable_insert_text(editable, fitted.text.c_str(),
                                 static_cast<int>(fitted.text.size()), position);
    if (fitted.cut && !typed) watch->box.window()->surface().beep();
}

void entryComposes(GtkEntry* /*entry*/, const char* unfinished, EntryWatch* watch) {
    watch->composing = unfinished != nullptr && *unfinished != '\0';
}

void entryReceives(GtkWidget* widget, GdkDragContext* context, int x, int /*y*/,
                   GtkSelectionData* data, unsigned /*info*/, unsigned time, EntryWatch* watch) {
    // What is moved inside the entry is its own text already.
    if (gtk_drag_get_source_widget(context) == widget) return;
    const std::unique_ptr<unsigned char, void (*)(void*)> text(gtk_selection_data_get_text(data),
                                                               g_free);
    if (!text) return;
    g_signal_stop_emission_by_name(widget, "drag-data-received");
    auto* entry = GTK_ENTRY(widget);
    int left = 0;
    gtk_entry_get_layout_offsets(entry, &left, nullptr);
    int index = 0;
    int trailing = 0;
    pango_layout_xy_to_index(gtk_entry_get_layout(entry), (x - left) * PANGO_SCALE, 0, &index,
                             &trailing);
    const int byte = gtk_entry_layout_index_to_text_index(entry, index);
    const char* const all = gtk_entry_get_text(entry);
    const auto at = g_utf8_pointer_to_offset(all, all + byte) + trailing;
    pasteAt(watch->native, watch->box, at, reinterpret_cast<const char*>(text.get()));
    gtk_drag_finish(context, TRUE, FALSE, time);
}

void forgetEntry(void* watch) {
    delete static_cast<EntryWatch*>(watch);
}

}  // extern "C"

}  // namespace

void guardEntry(wxTextCtrl& native, TextBox& box) {
    GtkWidget* const entry = native.m_widget;
    auto* const watch = new EntryWatch{native, box};
    g_object_set_data_full(G_OBJECT(entry), watchName, watch, forgetEntry);
    g_signal_connect(entry, "insert-text", G_CALLBACK(entryInserts), watch);
    g_signal_connect(entry, "preedit-changed", G_CALLBACK(entryComposes), watch);
    g_signal_connect(entry, "drag-data-received", G_CALLBACK(entryReceives), watch);
}

void showText(wxTextCtrl& native, const TextBox& box) {
    if (native.GetValue() == wxText(box.text())) return;
    EntryWatch* const watch = watchOf(native);
    if (watch != nullptr) watch->shows = true;
    native.ChangeValue(wxText(box.text()));
    if (watch != nullptr) watch->shows = false;
}

bool isComposing(const wxWindow& native) {
    const EntryWatch* const watch = watchOf(native);
    return watch != nullptr && watch->composing;
}

}  // namespace catalogador::wx
