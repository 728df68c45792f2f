#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <algorithm>

#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/message_box.h"
#include "runtime/base_letters.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

namespace catalogador::wx {

namespace {

constexpr int margin = 12;
constexpr int widestText = 460;

wxArtID pictureOf(BoxKind kind) {
    switch (kind) {
        case BoxKind::question:
            return wxART_QUESTION;
        case BoxKind::error:
            return wxART_ERROR;
        default:
            return wxART_WARNING;
    }
}

/// The letter that a caption marks, folded; empty when it marks none.
std::string letterOf(const std::string& caption) {
    const std::size_t mark = caption.find('&');
    if (mark == std::string::npos) return {};
    return withoutAccents(foldCase(leftCharacters(caption.substr(mark + 1), 1)));
}

/// The toolkit's own box can neither be placed nor told to take letters alone.
class MessageBox : public wxDialog {
  public:
    /// `seen` is a part of the screen that the box leaves free where there is room beside it.
    MessageBox(wxWindow* parent, const BoxContent& content, const wxRect& seen);

    /// Shows the box and gives the answer of the button that was pressed.
    int ask();

  private:
    void addTexts(wxSizer& column, const BoxContent& content);
    wxSizer* createButtons(const BoxContent& content);
    void onKey(wxKeyEvent& event);
    void press(int answer) { EndModal(answer); }

    std::vector<BoxButton> buttons_;
};

/// Where a box of that size goes: in the middle of the window, unless it would cover `seen`; then
/// below it or above it, where the screen leaves room.
wxPoint placeOfBox(const wxSize& box, const wxRect& window, const wxRect& seen,
                   const wxRect& screen);

MessageBox::MessageBox(wxWindow* parent, const BoxContent& content, const wxRect& seen)
    : wxDialog(parent, wxID_ANY, wxText(content.title), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxCLOSE_BOX | wxSYSTEM_MENU),
      buttons_(content.buttons) {
    SetName(wxText(content.kindName));
    readAsAlert(*this, wxText(content.heading.empty() ? content.text
                                                      : content.heading + "\n" + content.text));
    auto* picture = new wxStaticBitmap(
        this, wxID_ANY, wxArtProvider::GetBitmapBundle(pictureOf(content.kind), wxART_MESSAGE_BOX));
    picture->SetToolTip(wxText(content.kindName));
    auto* texts = new wxBoxSizer(wxVERTICAL);
    addTexts(*texts, content);
    auto* line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(picture, wxSizerFlags().Top().Border(wxRIGHT, FromDIP(margin)));
    line->Add(texts, wxSizerFlags(1).CentreVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(line, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(margin)));
    all->Add(createButtons(content),
             wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(margin)));
    SetSizerAndFit(all);
    Bind(wxEVT_CHAR_HOOK, &MessageBox::onKey, this);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { press(buttons_.back().answer); });
    const wxRect screen = wxDisplay(parent == nullptr ? this : parent).GetClientArea();
    const wxRect window = parent == nullptr ? screen : parent->GetScreenRect();
    Move(placeOfBox(GetSize(), window, seen, screen));
}

void MessageBox::addTexts(wxSizer& column, const BoxContent& content) {
    const auto add = [&](const std::string& text, const wxFont& font) {
        if (text.empty()) return;
        // What looks like a mark for a letter is text here.
        auto* label = new wxStaticText(this, wxID_ANY, "");
        label->SetFont(font);
        label->SetLabelText(wxText(text));
        label->Wrap(FromDIP(widestText));
        column.Add(label, wxSizerFlags().Border(wxTOP, column.IsEmpty() ? 0 : FromDIP(margin)));
    };
    add(content.heading, GetFont().Bold());
    add(content.text, GetFont());
    add(content.details, GetFont().Smaller());
}

wxSizer* MessageBox::createButtons(const BoxContent& content) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (std::size_t n = 0; n < buttons_.size(); ++n) {
        // Desktops of this kind have the button that agrees at the right.
        const std::size_t i = buttons_.size() - 1 - n;
        const int answer = buttons_[i].answer;
        auto* button = new wxButton(this, wxID_ANY, wxText(buttons_[i].caption));
        button->Bind(wxEVT_BUTTON, [this, answer](wxCommandEvent&) { press(answer); });
        row->Add(button, wxSizerFlags().Border(wxLEFT, n == 0 ? 0 : FromDIP(margin) / 2));
        if (i != content.defaultButton) continue;
        button->SetDefault();
        button->SetFocus();
    }
    return row;
}

void MessageBox::onKey(wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE) return press(buttons_.back().answer);
    const auto typed = static_cast<char32_t>(event.GetUnicodeKey());
    if (typed < U' ' || event.ControlDown()) return event.Skip();
    std::string letter;
    appendCharacter(letter, typed);
    letter = withoutAccents(foldCase(letter));
    const auto found = std::find_if(buttons_.begin(), buttons_.end(), [&](const BoxButton& button) {
        return letterOf(button.caption) == letter;
    });
    if (found == buttons_.end()) return event.Skip();
    press(found->answer);
}

int MessageBox::ask() {
    return ShowModal();
}

wxPoint placeOfBox(const wxSize& box, const wxRect& window, const wxRect& seen,
                   const wxRect& screen) {
    const auto within = [](int at, int size, int from, int room) {
        return std::max(from, std::min(at, from + room - size));
    };
    wxPoint place(window.x + (window.width - box.x) / 2, window.y + (window.height - box.y) / 2);
    place.x = within(place.x, box.x, screen.x, screen.width);
    place.y = within(place.y, box.y, screen.y, screen.height);
    // What the window manager puts round the box.
    constexpr int frame = 32;
    const int height = box.y + frame;
    const wxRect covered(place.x, place.y - frame, box.x, box.y + 2 * frame);
    if (seen.IsEmpty() || !covered.Intersects(seen)) return place;
    if (seen.GetBottom() + 1 + height <= screen.GetBottom())
        place.y = seen.GetBottom() + 1 + frame;
    else if (seen.y - height >= screen.y)
        place.y = seen.y - height;
    return place;
}

}  // namespace

int showBox(wxWindow* parent, const BoxContent& content, const wxRect& seen) {
    MessageBox box(parent, content, seen);
    return box.ask();
}

}  // namespace catalogador::wx
