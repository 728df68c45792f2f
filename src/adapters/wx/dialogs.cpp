#include <wx/filedlg.h>
#include <wx/filefn.h>
#include <wx/filename.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/message_box.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/wx_surface.h"
#include "platform/services.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr int buttonsMask = 0x0F;
constexpr int iconMask = 0xF0;
constexpr int yesNoButtons = 4;
constexpr int questionIcon = 0x20;
constexpr int secondButtonDefault = 0x100;
constexpr int answerOk = 1;
constexpr int promptBeforeOverwriting = 2;

/// The path with the extension of the chosen entry of the filter list, unless it has one.
wxString withExtension(const wxString& path, const SaveDialog& dialog, int filterIndex) {
    const std::vector<std::string> filter = splitText(dialog.filter, "|");
    const std::size_t pattern = 2 * static_cast<std::size_t>(std::max(0, filterIndex)) + 1;
    if (wxFileName(path).HasExt() || pattern >= filter.size()) return path;
    const std::string& mask = filter[pattern];
    const std::size_t dot = mask.rfind('.');
    if (dot == std::string::npos || mask.find_first_of("*?;", dot) != std::string::npos)
        return path;
    return path + wxText(mask.substr(dot));
}

}  // namespace

int showMessageBox(wxWindow* parent, const BoxLabels& labels, const std::string& text, int style,
                   const std::string& title, const wxRect& seen) {
    const bool question = (style & buttonsMask) == yesNoButtons;
    wx::BoxContent content;
    content.title = title;
    content.text = text;
    content.kind = (style & iconMask) == questionIcon ? wx::BoxKind::question : wx::BoxKind::notice;
    content.kindName =
        content.kind == wx::BoxKind::question ? labels.questionKind : labels.noticeKind;
    if (question)
        content.buttons = {{answerYes, labels.yes}, {answerNo, labels.no}};
    else
        content.buttons = {{answerOk, labels.ok}};
    content.defaultButton = question && (style & secondButtonDefault) != 0 ? 1 : 0;
    return wx::showBox(parent, content, seen);
}

void showErrorBox(wxWindow* parent, const BoxLabels& labels, const ErrorNotice& error) {
    wx::BoxContent content;
    content.kind = wx::BoxKind::error;
    content.kindName = labels.errorKind;
    content.title = error.title;
    content.heading = error.task;
    content.text = error.text;
    content.details = error.context.empty() ? error.detail : error.context + "\n" + error.detail;
    content.buttons = {{answerOk, labels.ok}};
    wx::showBox(parent, content, {});
}

std::optional<SaveChoice> showSaveDialog(wxWindow* parent, const SaveDialog& dialog) {
    long flags = wxFD_SAVE;
    const bool asks = (dialog.flags & promptBeforeOverwriting) != 0;
    if (asks) flags |= wxFD_OVERWRITE_PROMPT;
    const std::string file = replaceText(dialog.file, "/", "-", Compare::binary);
    wxFileDialog box(parent, wxText(dialog.title), wxText(dialog.folder), wxText(file),
                     wxText(dialog.filter), flags);
    while (box.ShowModal() == wxID_OK) {
        const wxString complete = withExtension(box.GetPath(), dialog, box.GetFilterIndex());
        if (!asks || complete == box.GetPath() || !wxFileExists(complete))
            return SaveChoice{utf8Text(complete), box.GetFilterIndex() + 1};
        // The dialog has asked about the name without its extension; it has to ask about this one.
        box.SetPath(complete);
    }
    return std::nullopt;
}

}  // namespace catalogador
