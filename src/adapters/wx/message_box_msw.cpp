#include <wx/msgdlg.h>

#include "adapters/wx/appearance.h"
#include "adapters/wx/message_box.h"

namespace catalogador::wx {

int showBox(wxWindow* parent, const BoxContent& content, const wxRect& /*seen*/) {
    constexpr long pictures[] = {wxICON_QUESTION, wxICON_EXCLAMATION, wxICON_ERROR};
    const bool question = content.buttons.size() > 1;
    long flags = wxCENTRE | (question ? wxYES_NO : wxOK);
    flags |= pictures[static_cast<std::size_t>(content.kind)];
    if (content.defaultButton > 0) flags |= wxNO_DEFAULT;
    const bool headed = !content.heading.empty();
    const std::string below = headed ? content.text + "\n\n" + content.details : content.details;
    wxMessageDialog box(parent, wxText(headed ? content.heading : content.text),
                        wxText(content.title), flags);
    if (question)
        box.SetYesNoLabels(wxText(content.buttons[0].caption), wxText(content.buttons[1].caption));
    else
        box.SetOKLabel(wxText(content.buttons[0].caption));
    if (!below.empty()) box.SetExtendedMessage(wxText(below));
    return box.ShowModal() == wxID_NO ? content.buttons.back().answer
                                      : content.buttons.front().answer;
}

}  // namespace catalogador::wx
