#pragma once
#include <wx/window.h>

#include <string>
#include <vector>

namespace catalogador::wx {

enum class BoxKind { question, notice, error };

/// A button of a box and what pressing it answers. A "&" in the caption marks its letter.
struct BoxButton {
    int answer = 0;
    std::string caption;
};

struct BoxContent {
    BoxKind kind = BoxKind::notice;
    /// The kind in the user's language.
    std::string kindName;
    std::string title;
    /// What the box is about in one line, above the text; may be empty.
    std::string heading;
    std::string text;
    /// Smaller text below, for those who look into the cause; may be empty.
    std::string details;
    /// From the one that agrees to the one that does not.
    std::vector<BoxButton> buttons;
    /// Which of them Enter presses at first.
    std::size_t defaultButton = 0;
};

/// Shows a message in front of a window and gives the answer of the button that was pressed. The
/// letter marked in a button's caption presses it, with Alt and alone, and Escape presses the last
/// one. `seen` is a part of the screen that the box leaves free where there is room beside it and
/// where the desktop lets a box be placed.
int showBox(wxWindow* parent, const BoxContent& content, const wxRect& seen);

}  // namespace catalogador::wx
