#pragma once
#include <string>

#include "platform/printed_document.h"

namespace catalogador {

class RecordGrid;

/// Page setting that draws a rule under the page header and one above the footer.
constexpr int pageSettingRules = 3;

/// The form's printer control: makes a document of pages, which others show and print. Set it up,
/// start the document, write, end the document, then put overlays on its pages.
class vsPrinter {
  public:
    /// `measure` must outlive the printer. Margins too small for header and footer are widened,
    /// those that leave no room between them are made as small as they may be.
    vsPrinter(const FontMeasure& measure, PageSetup setup);

    int pageSetting = 0;
    /// What stands at the top of every page.
    std::string header;
    std::string headerFontName;
    double headerFontSize = 10;
    std::string fontName;
    /// In points.
    double fontSize = 8;

    void startDocument(const std::string& title);
    /// Moves on by one line for each "\r\n".
    void write(std::string_view text);
    /// Draws the rows that the grid shows over the width of the page, from here on; in a smaller
    /// font where the columns would otherwise be too narrow for their words.
    void renderGrid(const RecordGrid& grid);
    void endDocument();
    [[nodiscard]] int pageCount() const;
    /// Left margin and bottom margin line, in twips from the page's corner.
    [[nodiscard]] int marginLeft() const { return document_.setup.left; }
    [[nodiscard]] int marginBottomLine() const;

    /// From here on writeAligned writes on that page (from 1). Raises RuntimeError for a page that
    /// is not there.
    void startOverlay(int page);
    /// The line that writeAligned writes on, in twips from the page's corner.
    void moveTo(int x, int y);
    /// Writes between the position's x and the right margin; `align` is one of print_align.
    void writeAligned(const std::string& text, int align);
    void endOverlay();

    [[nodiscard]] const PrintedDocument& document() const { return document_; }

  private:
    PrintedPage& newPage();
    std::size_t fontOf(const PrintFont& font);
    [[nodiscard]] double gridFontSize(const RecordGrid& grid) const;
    void putRule(PrintedPage& page, int top) const;

    const FontMeasure& measure_;
    PrintedDocument document_;
    int y_ = 0;
    int x_ = 0;
    PrintedPage* overlay_ = nullptr;
};

}  // namespace catalogador
