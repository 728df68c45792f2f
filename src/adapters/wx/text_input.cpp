#include "adapters/wx/text_input.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "adapters/wx/appearance.h"
#include "adapters/wx/text_entry.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

void takeFromNative(const wxTextCtrl& native, TextBox& box) {
    long from = 0;
    long to = 0;
    native.GetSelection(&from, &to);
    box.userEdited(utf8Text(native.GetValue()), static_cast<std::size_t>(from),
                   static_cast<std::size_t>(to - from));
}

std::string clipboardText(bool selection) {
    wxTextDataObject data;
    wxTheClipboard->UsePrimarySelection(selection);
    const wxClipboardLocker locked;
    const bool found = !!locked && wxTheClipboard->GetData(data);
    wxTheClipboard->UsePrimarySelection(false);
    return found ? utf8Text(data.GetText()) : std::string();
}

void pasteInto(wxTextCtrl& native, TextBox& box, const std::string& text) {
    takeFromNative(native, box);
    box.paste(text);
    syncText(native, box);
}

#ifdef __WXGTK__
void pasteSelection(wxTextCtrl& native, TextBox& box, wxMouseEvent& event) {
    long at = 0;
    if (native.HitTest(event.GetPosition(), &at) == wxTE_HT_UNKNOWN) return event.Skip();
    native.SetFocus();
    pasteAt(native, box, at, clipboardText(true));
}
#endif

void typed(wxTextCtrl& native, TextBox& box, wxKeyEvent& event) {
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    const bool command = event.ControlDown() != event.AltDown();
    if (character < U' ' || character == WXK_DELETE || command) {
        event.Skip();
        return;
    }
    const char32_t kept = box.window()->dispatchCharacter(character);
    if (kept == character) {
        event.Skip();
    } else if (kept != 0) {
        native.WriteText(wxUniChar(static_cast<unsigned long>(kept)));
    }
}

}  // namespace

void bindTextInput(wxTextCtrl& native, TextBox& box) {
    native.Bind(wxEVT_CHAR, [&](wxKeyEvent& event) { typed(native, box, event); });
    guardEntry(native, box);
    native.Bind(wxEVT_TEXT_PASTE,
                [&](wxClipboardTextEvent&) { pasteInto(native, box, clipboardText(false)); });
#ifdef __WXGTK__
    // Only there does the middle button paste.
    native.Bind(wxEVT_MIDDLE_DOWN,
                [&](wxMouseEvent& event) { pasteSelection(native, box, event); });
#endif
    native.Bind(wxEVT_TEXT, [&](wxCommandEvent&) { takeFromNative(native, box); });
    native.Bind(wxEVT_SET_FOCUS, [&](wxFocusEvent& event) {
        event.Skip();
        box.window()->userFocused(box);
    });
}

void pasteAt(wxTextCtrl& native, TextBox& box, long at, const std::string& text) {
    long from = 0;
    long to = 0;
    native.GetSelection(&from, &to);
    if (at < from || at > to) native.SetSelection(at, at);
    pasteInto(native, box, text);
}

void syncText(wxTextCtrl& native, const TextBox& box) {
    // A longer text that the program has set is shown whole; the limit holds for typing.
    showText(native, box);
    if (!box.hasFocus()) return;
    long from = 0;
    long to = 0;
    native.GetSelection(&from, &to);
    const auto start = static_cast<long>(box.selStart());
    const auto end = static_cast<long>(box.selStart() + box.selLength());
    if (from != start || to != end) native.SetSelection(start, end);
}

}  // namespace catalogador::wx
