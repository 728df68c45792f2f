#pragma once
#include <wx/control.h>

#include <string>

namespace catalogador::wx {

/// A caption broken into lines that fit into a width in pixels in the font of a window, between
/// words where that is possible. The "&" before a letter takes no room.
wxString wrappedCaption(const wxWindow& window, const wxString& caption, int width);

/// Width in pixels of a caption on one line.
int captionWidth(const wxWindow& window, const wxString& caption);

/// What is shown for the caption of a field that must not be left empty.
wxString withRequiredMark(const std::string& caption, bool required);

/// A caption that a native control shows in lines.
class BrokenCaption {
  public:
    /// Has the control show a caption in lines that fit into a width in pixels.
    void fit(wxControl& native, const wxString& caption, int width);
    /// What the control shows, without the ends of lines that fit has put into it.
    [[nodiscard]] wxString unbroken(const wxControl& native) const;

  private:
    wxString caption_;
    wxString lines_;
    int width_ = -1;
};

}  // namespace catalogador::wx
