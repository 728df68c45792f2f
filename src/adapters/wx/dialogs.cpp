#include <wx/filedlg.h>
#include <wx/msgdlg.h>

#include "adapters/wx/appearance.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/wx_surface.h"
#include "platform/services.h"

namespace catalogador {

namespace {

constexpr int buttonsMask = 0x0F;
constexpr int iconMask = 0xF0;
constexpr int yesNoButtons = 4;
constexpr int questionIcon = 0x20;
constexpr int secondButtonDefault = 0x100;
constexpr int answerOk = 1;
constexpr int promptBeforeOverwriting = 2;

}  // namespace

int showMessageBox(wxWindow* parent, const BoxLabels& labels, const std::string& text, int style,
                   const std::string& title) {
    const bool question = (style & buttonsMask) == yesNoButtons;
    long flags = wxCENTRE | (question ? wxYES_NO : wxOK);
    flags |= (style & iconMask) == questionIcon ? wxICON_QUESTION : wxICON_EXCLAMATION;
    if ((style & secondButtonDefault) != 0) flags |= wxNO_DEFAULT;
    wxMessageDialog box(parent, wxText(text), wxText(title), flags);
    if (question)
        box.SetYesNoLabels(wxText(labels.yes), wxText(labels.no));
    else
        box.SetOKLabel(wxText(labels.ok));
    const int answer = box.ShowModal();
    if (!question) return answerOk;
    return answer == wxID_YES ? answerYes : answerNo;
}

void showErrorBox(wxWindow* parent, const BoxLabels& labels, const std::string& text,
                  const std::string& title, const std::string& detail, const std::string& context) {
    wxMessageDialog box(parent, wxText(text), wxText(title), wxOK | wxCENTRE | wxICON_ERROR);
    box.SetOKLabel(wxText(labels.ok));
    box.SetExtendedMessage(wxText(context.empty() ? detail : context + "\n" + detail));
    box.ShowModal();
}

std::optional<SaveChoice> showSaveDialog(wxWindow* parent, const SaveDialog& dialog) {
    long flags = wxFD_SAVE;
    if ((dialog.flags & promptBeforeOverwriting) != 0) flags |= wxFD_OVERWRITE_PROMPT;
    wxFileDialog box(parent, wxText(dialog.title), wxText(dialog.folder), wxText(dialog.file),
                     wxText(dialog.filter), flags);
    if (box.ShowModal() != wxID_OK) return std::nullopt;
    return SaveChoice{utf8Text(box.GetPath()), box.GetFilterIndex() + 1};
}

}  // namespace catalogador
