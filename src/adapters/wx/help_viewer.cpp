#include "adapters/wx/help_viewer.h"

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/filesys.h>
#include <wx/frame.h>
#include <wx/html/htmlwin.h>
#include <wx/iconbndl.h>
#include <wx/image.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/treectrl.h>

#include <algorithm>
#include <vector>

#include "adapters/help/help_pages.h"
#include "adapters/system/paths.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/icons.h"
#include "adapters/wx/png_images.h"
#include "runtime/error.h"

namespace catalogador::wx {

namespace {

constexpr int helpIcon = 8;
constexpr int listWidth = 230;
const wxSize usualSize(950, 700);
const wxSize smallestSize(520, 320);

/// The name of a page as the data of its entry in the contents.
class PageName : public wxTreeItemData {
  public:
    explicit PageName(std::string name) : name_(std::move(name)) {}
    [[nodiscard]] const std::string& name() const { return name_; }

  private:
    std::string name_;
};

class HelpFrame : public wxFrame {
  public:
    HelpFrame(wxWindow& parent, const help::HelpPages& pages, HelpLabels labels, int language);
    void visit(help::HelpPage page);

  private:
    wxButton* addButton(wxWindow& bar, wxSizer& row, const std::string& label, const char* art,
                        void (HelpFrame::*pressed)());
    void createBar();
    void createPages();
    void fillContents();
    void follow(const std::string& link);
    void show();
    void step(std::ptrdiff_t by);
    void back() { step(-1); }
    void forward() { step(1); }
    void contents() { follow("index.html"); }
    void close() { Close(); }
    void onKey(wxKeyEvent& event);
    void placeBeside(const wxWindow& parent);

    help::HelpPages pages_;
    HelpLabels labels_;
    int language_;
    std::vector<help::HelpPage> visited_;
    std::size_t at_ = 0;
    std::vector<wxTreeItemId> entries_;
    bool selecting_ = false;
    wxButton* back_ = nullptr;
    wxButton* forward_ = nullptr;
    wxPanel* bar_ = nullptr;
    wxSplitterWindow* split_ = nullptr;
    wxTreeCtrl* list_ = nullptr;
    wxHtmlWindow* html_ = nullptr;
};

HelpFrame::HelpFrame(wxWindow& parent, const help::HelpPages& pages, HelpLabels labels,
                     int language)
    : wxFrame(&parent, wxID_ANY, wxText(labels.help), wxDefaultPosition, parent.FromDIP(usualSize),
              wxDEFAULT_FRAME_STYLE),
      pages_(pages),
      labels_(std::move(labels)),
      language_(language) {
    // The parent reads the keys of its own children; those of this window are none of its business.
    SetExtraStyle(GetExtraStyle() | wxWS_EX_BLOCK_EVENTS);
    usePngImages();
    SetIcons(wxIconBundle(iconBundle(helpIcon).GetIcon(FromDIP(wxSize(16, 16)))));
    SetMinSize(FromDIP(smallestSize));
    createBar();
    createPages();
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(bar_, wxSizerFlags().Expand());
    column->Add(split_, wxSizerFlags(1).Expand());
    SetSizer(column);
    Bind(wxEVT_CHAR_HOOK, &HelpFrame::onKey, this);
    placeBeside(parent);
}

wxButton* HelpFrame::addButton(wxWindow& bar, wxSizer& row, const std::string& label,
                               const char* art, void (HelpFrame::*pressed)()) {
    auto* button = new wxButton(&bar, wxID_ANY, wxText(label));
    button->SetBitmap(wxArtProvider::GetBitmapBundle(art, wxART_BUTTON));
    button->Bind(wxEVT_BUTTON, [this, pressed](wxCommandEvent&) { (this->*pressed)(); });
    row.Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(4)));
    return button;
}

void HelpFrame::createBar() {
    bar_ = new wxPanel(this);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    back_ = addButton(*bar_, *row, labels_.back, wxART_GO_BACK, &HelpFrame::back);
    forward_ = addButton(*bar_, *row, labels_.forward, wxART_GO_FORWARD, &HelpFrame::forward);
    addButton(*bar_, *row, labels_.contents, wxART_GO_HOME, &HelpFrame::contents);
    row->AddStretchSpacer();
    addButton(*bar_, *row, labels_.close, wxART_CLOSE, &HelpFrame::close);
    auto* margin = new wxBoxSizer(wxVERTICAL);
    margin->Add(row, wxSizerFlags().Expand().Border(wxALL, FromDIP(6)));
    bar_->SetSizer(margin);
}

void HelpFrame::createPages() {
    split_ = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                  wxSP_LIVE_UPDATE | wxSP_THIN_SASH);
    list_ = new wxTreeCtrl(split_, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxTR_HIDE_ROOT | wxTR_NO_BUTTONS | wxTR_NO_LINES | wxTR_SINGLE |
                               wxTR_FULL_ROW_HIGHLIGHT | wxBORDER_NONE);
    list_->SetIndent(FromDIP(10));
    fillContents();
    list_->Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent& event) {
        const auto* page = dynamic_cast<PageName*>(list_->GetItemData(event.GetItem()));
        if (!selecting_ && page != nullptr) follow(page->name());
    });
    list_->Bind(wxEVT_TREE_ITEM_COLLAPSING, [](wxTreeEvent& event) { event.Veto(); });
    html_ = new wxHtmlWindow(split_, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                             wxHW_SCROLLBAR_AUTO | wxBORDER_NONE);
    html_->SetStandardFonts();
    html_->SetBorders(FromDIP(14));
    html_->Bind(wxEVT_HTML_LINK_CLICKED, [this](wxHtmlLinkEvent& event) {
        follow(utf8Text(event.GetLinkInfo().GetHref()));
    });
    split_->SetMinimumPaneSize(FromDIP(120));
    split_->SplitVertically(list_, html_, FromDIP(listWidth));
}

void HelpFrame::fillContents() {
    const wxTreeItemId root = list_->AddRoot("");
    wxTreeItemId group = root;
    for (const help::HelpTopic& topic : pages_.topics(language_)) {
        if (topic.page.empty()) {
            group = list_->AppendItem(root, wxText(topic.title));
            list_->SetItemBold(group);
        } else {
            entries_.push_back(
                list_->AppendItem(group, wxText(topic.title), -1, -1, new PageName(topic.page)));
        }
    }
    list_->ExpandAll();
}

void HelpFrame::follow(const std::string& link) {
    try {
        visit(pages_.page(link, language_));
    } catch (const RuntimeError& error) {
        html_->SetPage(wxText(error.description()));
    }
}

void HelpFrame::visit(help::HelpPage page) {
    if (!visited_.empty() && visited_[at_].html == page.html) return show();
    if (!visited_.empty()) visited_.resize(at_ + 1);
    visited_.push_back(std::move(page));
    at_ = visited_.size() - 1;
    show();
}

void HelpFrame::step(std::ptrdiff_t by) {
    const std::ptrdiff_t wanted = static_cast<std::ptrdiff_t>(at_) + by;
    if (wanted < 0 || wanted >= static_cast<std::ptrdiff_t>(visited_.size())) return;
    at_ = static_cast<std::size_t>(wanted);
    show();
}

void HelpFrame::show() {
    const help::HelpPage& page = visited_[at_];
    html_->GetParser()->GetFS()->ChangePathTo(wxText(pathText(page.folder)), true);
    html_->SetPage(wxText(page.html));
    html_->Scroll(0, 0);
    SetTitle(wxText(labels_.help + " - " + page.title));
    back_->Enable(at_ > 0);
    forward_->Enable(at_ + 1 < visited_.size());
    selecting_ = true;
    list_->UnselectAll();
    for (const wxTreeItemId& entry : entries_)
        if (dynamic_cast<PageName&>(*list_->GetItemData(entry)).name() == page.name)
            list_->SelectItem(entry);
    selecting_ = false;
    // A click into the contents takes the focus once its event is through.
    CallAfter([this] { html_->SetFocus(); });
}

void HelpFrame::onKey(wxKeyEvent& event) {
    const int code = event.GetKeyCode();
    if (code == WXK_ESCAPE)
        close();
    else if (event.AltDown() && code == WXK_LEFT)
        back();
    else if (event.AltDown() && code == WXK_RIGHT)
        forward();
    else if (event.AltDown() && code == WXK_HOME)
        contents();
    else
        event.Skip();
}

void HelpFrame::placeBeside(const wxWindow& parent) {
    const int display = wxDisplay::GetFromWindow(&parent);
    const wxRect screen =
        wxDisplay(display == wxNOT_FOUND ? 0U : static_cast<unsigned>(display)).GetClientArea();
    wxRect place(GetSize());
    place.width = std::min(place.width, screen.width);
    place.height = std::min(place.height, screen.height);
    // At the right edge, so that as much as possible of the screen that it explains stays in sight.
    place = place.CentreIn(screen);
    place.x = screen.GetRight() - place.width + 1;
    SetSize(place);
}

}  // namespace

void showHelp(wxWindow& parent, const help::HelpPages& pages, const HelpLabels& labels,
              const HelpRequest& request) {
    help::HelpPage page = pages.page(request.command, request.data, request.language);
    HelpFrame* frame = nullptr;
    for (wxWindow* child : parent.GetChildren())
        if (frame == nullptr) frame = dynamic_cast<HelpFrame*>(child);
    // A window that is being closed still is a child for a moment.
    if (frame == nullptr || frame->IsBeingDeleted())
        frame = new HelpFrame(parent, pages, labels, request.language);
    frame->visit(std::move(page));
    frame->Show();
    if (frame->IsIconized()) frame->Restore();
    frame->Raise();
}

}  // namespace catalogador::wx
