#include <wx/filedlg.h>
#include <wx/filefn.h>
#include <wx/filename.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/message_box.h"
#include "adapters/wx/screen_frame.h"
#include "adapters/wx/window_texts.h"
#include "adapters/wx/wx_surface.h"
#include "platform/services.h"
#include "runtime/text.h"

namespace catalogador::wx {

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

bool mayReplace(wxWindow* parent, const std::string& title, const wxString& file) {
    constexpr int question = questionIcon | yesNoButtons | secondButtonDefault;
    const std::string text =
        replaceText(boxLabels().replaceFile, "[p1]", utf8Text(file), Compare::binary);
    return showMessageBox(parent, text, question, title, {}) == answerYes;
}

}  // namespace

int showMessageBox(wxWindow* parent, const std::string& text, int style, const std::string& title,
                   const wxRect& seen) {
    const BoxLabels labels = boxLabels();
    const bool question = (style & buttonsMask) == yesNoButtons;
    BoxContent content;
    content.title = title;
    content.text = text;
    content.kind = (style & iconMask) == questionIcon ? BoxKind::question : BoxKind::notice;
    content.kindName = content.kind == BoxKind::question ? labels.questionKind : labels.noticeKind;
    if (question)
        content.buttons = {{answerYes, labels.yes}, {answerNo, labels.no}};
    else
        content.buttons = {{answerOk, labels.ok}};
    content.defaultButton = question && (style & secondButtonDefault) != 0 ? 1 : 0;
    return showBox(parent, content, seen);
}

void showErrorBox(wxWindow* parent, const ErrorNotice& error) {
    const BoxLabels labels = boxLabels();
    BoxContent content;
    content.kind = BoxKind::error;
    content.kindName = labels.errorKind;
    content.title = error.title;
    content.heading = error.task;
    content.text = error.text;
    content.details = error.context.empty() ? error.detail : error.context + "\n" + error.detail;
    content.buttons = {{answerOk, labels.ok}};
    showBox(parent, content, {});
}

std::optional<SaveChoice> showSaveDialog(wxWindow* parent, const SaveDialog& dialog) {
    const bool asks = (dialog.flags & promptBeforeOverwriting) != 0;
    const std::string file = replaceText(dialog.file, "/", "-", Compare::binary);
    wxFileDialog box(parent, wxText(dialog.title), wxText(dialog.folder), wxText(file),
                     wxText(dialog.filter), wxFD_SAVE);
    // The dialog itself would ask about the name that was typed, which may lack its extension.
    while (box.ShowModal() == wxID_OK) {
        const wxString path = withExtension(box.GetPath(), dialog, box.GetFilterIndex());
        if (!asks || !wxFileExists(path) ||
            mayReplace(parent, dialog.title, wxFileName(path).GetFullName()))
            return SaveChoice{utf8Text(path), box.GetFilterIndex() + 1};
        box.SetPath(path);
    }
    return std::nullopt;
}

}  // namespace catalogador::wx
