#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/text_entry.h"
#include "runtime/text.h"

namespace catalogador::wx {

// Windows hands over characters one by one, drops nothing into text boxes and gives its input
// method the keys before the program sees them.
void guardEntry(wxTextCtrl& /*native*/, TextBox& /*box*/) {}

void showText(wxTextCtrl& native, const TextBox& box) {
    const std::size_t length = lengthInCharacters(box.text());
    const auto limit = static_cast<std::size_t>(box.maxLength());
    native.SetMaxLength(static_cast<unsigned long>(limit == 0 ? 0 : std::max(limit, length)));
    if (native.GetValue() != wxText(box.text())) native.ChangeValue(wxText(box.text()));
}

bool isComposing(const wxWindow& /*native*/) {
    return false;
}

}  // namespace catalogador::wx
