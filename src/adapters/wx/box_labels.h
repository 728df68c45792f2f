#pragma once
#include <cstdint>
#include <string>

namespace catalogador::wx {

/// Captions of the buttons of message boxes.
struct BoxLabels {
    std::string yes;
    std::string no;
    std::string ok;
    /// Language code of the toolkit's own texts: "es".
    std::string language;
    /// What the kinds of boxes are called, for those who do not see their pictures.
    std::string questionKind{};
    std::string noticeKind{};
    std::string errorKind{};
    /// Asks whether the file "[p]" may be replaced.
    std::string replaceFile{};
};
/// Those of the language of that number; of a number that no language has, the Spanish ones.
BoxLabels boxLabels(std::int16_t language);

}  // namespace catalogador::wx
