#pragma once
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/printed_document.h"

namespace catalogador {

/// Fits texts of one font into lines. Every character is measured once.
class TextFit {
  public:
    /// Both must outlive it.
    TextFit(const FontMeasure& measure, const PrintFont& font);

    [[nodiscard]] int width(std::string_view text);
    /// Width of the widest piece of the text between two blanks, of those no wider than `limit`.
    [[nodiscard]] int widestWord(std::string_view text,
                                 int limit = std::numeric_limits<int>::max());
    /// The text in lines that are no wider than `room` twips: broken at blanks, a word that is
    /// wider broken inside; what does not fit into `most` lines is left out and the last line ends
    /// in an ellipsis. A room of hardly any characters takes one line only. Line ends in the text
    /// count as blanks. No line where the text is empty or not even the ellipsis fits.
    std::vector<std::string> lines(std::string_view text, int room, std::size_t most);

  private:
    int characterWidth(std::string_view character);
    /// How many bytes of the text fit.
    std::size_t fitting(std::string_view text, int room);
    /// Takes the next line off `rest`; empty where not one character fits.
    std::string_view takeLine(std::string_view& rest, int room);
    std::string shortened(std::string_view text, int room);

    const FontMeasure& measure_;
    const PrintFont& font_;
    /// By code point: those of one and two bytes. -1 is not measured yet.
    std::vector<int> common_;
    std::unordered_map<std::string, int> others_;
};

}  // namespace catalogador
