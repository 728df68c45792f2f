#include "adapters/wx/text_input.h"

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

void takeFromNative(const wxTextCtrl& native, TextBox& box) {
    long from = 0;
    long to = 0;
    native.GetSelection(&from, &to);
    box.userEdited(utf8Text(native.GetValue()), static_cast<std::size_t>(from),
                   static_cast<std::size_t>(to - from));
}

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
    native.Bind(wxEVT_TEXT, [&](wxCommandEvent&) { takeFromNative(native, box); });
    native.Bind(wxEVT_SET_FOCUS, [&](wxFocusEvent& event) {
        event.Skip();
        box.window()->userFocused(box);
    });
}

void syncText(wxTextCtrl& native, const TextBox& box) {
    // A longer text that the program has set is shown whole; the limit holds for typing.
    const std::size_t length = lengthInCharacters(box.text());
    const auto limit = static_cast<std::size_t>(std::max(0, static_cast<int>(box.maxLength())));
    const std::size_t room = limit == 0 ? 0 : std::max(limit, length);
    native.SetMaxLength(static_cast<unsigned long>(room));
    if (native.GetValue() != wxText(box.text())) native.ChangeValue(wxText(box.text()));
    if (!box.hasFocus()) return;
    long from = 0;
    long to = 0;
    native.GetSelection(&from, &to);
    const auto start = static_cast<long>(box.selStart());
    const auto end = static_cast<long>(box.selStart() + box.selLength());
    if (from != start || to != end) native.SetSelection(start, end);
}

}  // namespace catalogador
