#pragma once
#include <cstdint>
#include <string>

namespace catalogador::wx {

/// Numbers, in the message catalogues, of the texts that the window itself has.
namespace window_text {
constexpr std::int32_t yes = 550;
constexpr std::int32_t no = 551;
constexpr std::int32_t ok = 552;
constexpr std::int32_t question = 553;
constexpr std::int32_t notice = 554;
constexpr std::int32_t error = 555;
constexpr std::int32_t replaceFile = 556;
constexpr std::int32_t back = 557;
constexpr std::int32_t forward = 558;
constexpr std::int32_t contents = 559;
constexpr std::int32_t close = 560;
constexpr std::int32_t required = 561;
constexpr std::int32_t ascending = 562;
constexpr std::int32_t descending = 563;
}  // namespace window_text

/// A text of the window in the language that is loaded.
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
