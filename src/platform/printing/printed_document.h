#pragma once
#include <string>
#include <string_view>
#include <vector>

#include "platform/geometry.h"

namespace catalogador {

struct PrintFont {
    std::string name;
    double points = 8;
    bool bold = false;
    bool operator==(const PrintFont&) const = default;
};

/// How texts are measured on paper, in twips.
class FontMeasure {
  public:
    virtual ~FontMeasure() = default;
    [[nodiscard]] virtual int width(std::string_view text, const PrintFont& font) const = 0;
    [[nodiscard]] virtual int lineHeight(const PrintFont& font) const = 0;
};

/// Paper and margins, in twips. A4 with margins of one inch unless said otherwise.
struct PageSetup {
    Size paper{11906, 16838};
    int left = 1440;
    int top = 1440;
    int right = 1440;
    int bottom = 1440;
};

/// One line of text; `align` is 6 right, 7 left, 8 centre, as the place it was written with.
/// `left`, `top`, `width` and `height` are twips from the page's corner; the text never needs more
/// than `width`.
struct PrintedText {
    std::string text;
    Rect place;
    PrintFont font;
    int align = 7;
};

/// A filled rectangle, or a line where it is one unit high or wide. Twips from the page's corner.
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
    std::vector<PrintedPage> pages;
};

}  // namespace catalogador
