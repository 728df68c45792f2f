#pragma once
#include <cstdint>
#include <string>

#include "modules/messages.h"

namespace catalogador::wx {

/// The text of a message in the language that is loaded.
std::string windowText(std::int32_t number);

/// Texts of message boxes. A "&" marks the letter of a button.
struct BoxLabels {
    std::string yes;
    std::string no;
    std::string ok;
    /// What the kinds of boxes are called, for those who do not see their pictures.
    std::string questionKind;
    std::string noticeKind;
    std::string errorKind;
    /// Asks whether the file "[p1]" may be replaced.
    std::string replaceFile;
};
/// Those of the language that is loaded. A box must also tell that no language could be loaded; its
/// buttons are Spanish then, as its text is.
BoxLabels boxLabels();

}  // namespace catalogador::wx
