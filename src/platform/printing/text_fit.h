#pragma once
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/printing/printed_document.h"

namespace catalogador {

/// Measures texts of one font and remembers what it has measured.
class TextFit {
  public:
    /// Both must outlive it.
    TextFit(const FontMeasure& measure, const PrintFont& font);

    [[nodiscard]] int width(std::string_view text);
    /// The text in lines that are no wider than `room` twips: broken at blanks, a word that is
    /// wider broken inside; what does not fit into `most` lines is left out and the last line ends
    /// in an ellipsis. Line ends in the text count as blanks. An empty text gives no line.
    std::vector<std::string> lines(std::string_view text, int room, std::size_t most);

  private:
    /// How many bytes of the text fit, one character at least.
    std::size_t fitting(std::string_view text, int room);
    std::string shortened(std::string_view text, int room);

    const FontMeasure& measure_;
    const PrintFont& font_;
    /// No character of the usual alphabets is wider.
    int widest_ = 0;
    std::unordered_map<std::string, int> known_;
};

}  // namespace catalogador
