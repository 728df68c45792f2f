#pragma once
#include <wx/window.h>

#include <memory>

#include "adapters/wx/combo_accessible.h"
#include "platform/controls/fields.h"

class wxPopupWindow;
class wxVListBox;

namespace catalogador::wx {

/// A combo drawn by the program: the field and, while the list is open, a popup that draws the
/// entries in sight, however many there are. The keys belong to the model; the popup never has the
/// focus.
class ComboField : public wxWindow {
  public:
    ComboField(ComboBox& combo, wxWindow& parent);
    ~ComboField() override;
    ComboField(const ComboField&) = delete;
    ComboField& operator=(const ComboField&) = delete;

    /// Follows the model after a change.
    void syncWithModel();
    /// What the field says now.
    [[nodiscard]] wxString shownText() const;
    bool AcceptsFocus() const override { return IsEnabled(); }
    /// Width in pixels that shows the longest of the entries.
    [[nodiscard]] int wantedWidth() const;

  protected:
    [[nodiscard]] wxSize DoGetBestClientSize() const override;

  private:
    class Popup;

    void onPaint(wxPaintEvent& event);
    void paintArrow(wxDC& dc, const wxColour& colour);
    void onMouseDown(wxMouseEvent& event);
    void onWheel(wxMouseEvent& event);
    void onChar(wxKeyEvent& event);

    ComboBox& combo_;
    std::unique_ptr<ComboAccessible> accessible_;
    Popup* popup_ = nullptr;
    /// Of the entry that is the longest among so many; looking for it takes longer the more there
    /// are, and they come once.
    mutable int widestEntry_ = 0;
    mutable int entriesMeasured_ = 0;
};

}  // namespace catalogador::wx
