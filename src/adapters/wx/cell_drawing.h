#pragma once
#include <wx/colour.h>
#include <wx/dc.h>
#include <wx/window.h>

#include <string_view>

namespace catalogador::wx {

/// Draws texts on one line each, in the font and colour that the device context has at the time.
/// The context must outlive it.
class CellTexts {
  public:
    CellTexts(wxDC& dc, wxWindow& window);
    ~CellTexts();
    CellTexts(const CellTexts&) = delete;
    CellTexts& operator=(const CellTexts&) = delete;

    /// Draws UTF-8 into the middle of a place (pixels); a text that is too wide ends in an
    /// ellipsis. `side` is 0 for left, 1 for centred, 2 for right.
    void draw(std::string_view text, const wxRect& place, int side);
    /// Whether a text that is too wide goes on in as many further lines as its place has room for,
    /// where the desktop's toolkit can do that; at first it does not.
    void wrap(bool wraps) { wraps_ = wraps; }
    /// To be called after the context was given another font.
    void fontChanged();

  private:
    wxDC& dc_;
    bool wraps_ = false;
    /// What is kept from text to text: setting it up takes longer than drawing one.
    void* layout_ = nullptr;
};

/// Draws a check box as large as the size, in pixels, at the context's origin, so that it can be
/// read on the background of its cell.
void drawCheckBox(wxDC& dc, wxWindow& window, const wxSize& size, bool checked,
                  const wxColour& background);

}  // namespace catalogador::wx
