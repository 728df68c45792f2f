#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/geometry.h"

namespace catalogador {

struct PrintFont {
    std::string name;
    double points = 8;
    bool bold = false;
};

/// How large texts are on paper, in twips. Texts are set without kerning and ligatures: one is as
/// wide as its characters are together.
class FontMeasure {
  public:
    virtual ~FontMeasure() = default;
    [[nodiscard]] virtual int width(std::string_view text, const PrintFont& font) const = 0;
    [[nodiscard]] virtual int lineHeight(const PrintFont& font) const = 0;
};

/// Paper and margins, in twips; A4 with margins of one inch unless said otherwise.
struct PageSetup {
    Size paper{11906, 16838};
    int left = 1440;
    int top = 1440;
    int right = 1440;
    int bottom = 1440;
};

/// Where in its room a text was put.
namespace print_align {
constexpr int right = 6;
constexpr int left = 7;
constexpr int centre = 8;
}  // namespace print_align

/// One line of text. `place` is what it covers, in twips from the page's corner.
struct PrintedText {
    std::string text;
    Rect place;
    /// Number of its font in the document.
    std::size_t font = 0;
    int align = print_align::left;
};

/// A filled rectangle, in twips from the page's corner. Lines are thin ones.
struct PrintedBox {
    Rect place;
    Color fill;
};

/// Boxes lie under the texts.
struct PrintedPage {
    std::vector<PrintedBox> boxes;
    std::vector<PrintedText> texts;
};

struct PrintedDocument {
    std::string title;
    PageSetup setup;
    std::vector<PrintFont> fonts;
    std::vector<PrintedPage> pages;
};

}  // namespace catalogador
