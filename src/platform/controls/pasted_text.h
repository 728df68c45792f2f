#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace catalogador {

/// What becomes of a text that comes into a single-line box as a whole: from the clipboard, dropped
/// or from an input method. Line ends and tabs become blanks ("\r\n" one), other control characters
/// go, and so do blanks at both ends.
std::string pastedText(std::string_view text);

struct FittedText {
    std::string text;
    /// Whether something had to go.
    bool cut = false;
};

/// As many characters from the start of a text as there is room for.
FittedText fittedText(std::string_view text, std::size_t room);

}  // namespace catalogador
