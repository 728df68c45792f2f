#include "adapters/wx/captions.h"

#include <wx/arrstr.h>

#include "adapters/wx/appearance.h"

namespace catalogador::wx {

namespace {

/// The first characters of a word that fit, one at least.
std::size_t fittingPart(const wxWindow& window, const wxString& word, int width) {
    std::size_t length = word.length();
    while (length > 1 && captionWidth(window, word.Left(length)) > width) --length;
    return length;
}

}  // namespace

int captionWidth(const wxWindow& window, const wxString& caption) {
    return window.GetTextExtent(wxControl::RemoveMnemonics(caption)).x;
}

wxString wrappedCaption(const wxWindow& window, const wxString& caption, int width) {
    if (captionWidth(window, caption) <= width) return caption;
    wxString lines;
    wxString line;
    const auto endLine = [&] {
        if (!lines.empty()) lines += '\n';
        lines += line;
        line.clear();
    };
    for (wxString word : wxSplit(caption, ' ', '\0')) {
        if (!line.empty() && captionWidth(window, line + ' ' + word) > width) endLine();
        while (captionWidth(window, word) > width && word.length() > 1) {
            const std::size_t length = fittingPart(window, word, width);
            line = word.Left(length);
            word = word.Mid(length);
            endLine();
        }
        line += line.empty() ? word : ' ' + word;
    }
    endLine();
    return lines;
}

wxString withRequiredMark(const std::string& caption, bool required) {
    return wxText(caption) + (required ? wxString(" *") : wxString());
}

void BrokenCaption::fit(wxControl& native, const wxString& caption, int width) {
    if (caption != caption_ || width != width_) {
        caption_ = caption;
        width_ = width;
        lines_ = wrappedCaption(native, caption, width);
    }
    if (native.GetLabel() == lines_) return;
    native.SetLabel(lines_);
    native.InvalidateBestSize();
}

wxString BrokenCaption::unbroken(const wxControl& native) const {
    const wxString shown = native.GetLabel();
    return shown == lines_ ? caption_ : shown;
}

}  // namespace catalogador::wx
