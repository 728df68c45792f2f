#include "adapters/wx/combo_field.h"

#include <wx/dcbuffer.h>
#include <wx/display.h>
#include <wx/eventfilter.h>
#include <wx/popupwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/vlbox.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/native_focus.h"
#include "adapters/wx/screen_frame.h"
#include "platform/controls/keys.h"
#include "platform/controls/window.h"

namespace catalogador::wx {

namespace {

constexpr std::size_t mostRows = 16;
/// Pixels at 96 dpi.
constexpr int textMargin = 6;
constexpr int rowPadding = 6;
constexpr int arrowSize = 4;
constexpr int narrowestList = 160;

wxString textOf(const ComboBox& combo, int index) {
    if (index < 0 || index >= combo.listCount()) return {};
    return wxText(combo.items()[static_cast<std::size_t>(index)].text);
}

void drawText(wxDC& dc, const wxString& text, wxRect room) {
    const wxString fitting = wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, room.width);
    dc.DrawLabel(fitting, room, wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
}

/// Has the frame show at once what an input to a window of it has changed.
void syncFrameOf(wxWindow& window) {
    if (auto* frame = dynamic_cast<ScreenFrame*>(wxGetTopLevelParent(&window))) frame->sync();
}

/// The entries of an open list; only those in sight are drawn.
class Entries : public wxVListBox {
  public:
    Entries(wxWindow* parent, ComboBox& combo, int rowHeight)
        : wxVListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE),
          combo_(combo),
          rowHeight_(rowHeight) {
        keepScrollBars(*this);
        SetItemCount(combo.items().size());
        Bind(wxEVT_MOTION, [this](wxMouseEvent& event) { combo_.mark(entryAt(event)); });
        // The list box would take the focus, which stays with the field.
        Bind(wxEVT_LEFT_DOWN, [](wxMouseEvent&) {});
        Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) { choose(entryAt(event)); });
    }

  protected:
    void OnDrawItem(wxDC& dc, const wxRect& place, std::size_t n) const override {
        wxRect room = place;
        room.Deflate(FromDIP(textMargin), 0);
        dc.SetFont(GetFont());
        dc.SetTextForeground(wxSystemSettings::GetColour(IsSelected(n) ? wxSYS_COLOUR_HIGHLIGHTTEXT
                                                                       : wxSYS_COLOUR_WINDOWTEXT));
        drawText(dc, textOf(combo_, static_cast<int>(n)), room);
    }
    [[nodiscard]] wxCoord OnMeasureItem(std::size_t /*n*/) const override { return rowHeight_; }

  private:
    [[nodiscard]] int entryAt(const wxMouseEvent& event) const {
        const int row = VirtualHitTest(event.GetY());
        return row == wxNOT_FOUND ? combo_.marked() : row;
    }
    void choose(int entry) {
        combo_.mark(entry);
        combo_.closeList(true);
    }

    ComboBox& combo_;
    int rowHeight_;
};

}  // namespace

/// The window of an open list. A press of the mouse anywhere else closes it.
class ComboField::Popup : public wxPopupWindow, public wxEventFilter {
  public:
    Popup(ComboField& field, ComboBox& combo)
        : wxPopupWindow(&field, wxBORDER_NONE), field_(field), combo_(combo) {
        const int rowHeight = field.GetCharHeight() + FromDIP(rowPadding);
        entries_ = new Entries(this, combo, rowHeight);
        entries_->SetFont(field.GetFont());
        entries_->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
        const auto rows = static_cast<int>(
            std::clamp<std::size_t>(static_cast<std::size_t>(combo.listCount()), 1, mostRows));
        const wxSize size(std::max(field.GetSize().x, FromDIP(narrowestList)),
                          rows * rowHeight + 2);
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
        sizer->Add(entries_, wxSizerFlags(1).Expand().Border(wxALL, 1));
        SetSizer(sizer);
        SetSize(wxRect(placeFor(size), size));
        Layout();
        showMarked();
        Show();
        wxEvtHandler::AddFilter(this);
    }
    ~Popup() override { wxEvtHandler::RemoveFilter(this); }

    void showMarked() {
        entries_->SetSelection(combo_.marked());
        const int marked = std::max(0, combo_.marked());
        if (marked < combo_.listCount() &&
            !entries_->IsRowVisible(static_cast<std::size_t>(marked)))
            entries_->ScrollToRow(static_cast<std::size_t>(marked));
    }

    int FilterEvent(wxEvent& event) override {
        const wxEventType type = event.GetEventType();
        if (type != wxEVT_LEFT_DOWN && type != wxEVT_RIGHT_DOWN && type != wxEVT_MIDDLE_DOWN)
            return Event_Skip;
        auto* pressed = dynamic_cast<wxWindow*>(event.GetEventObject());
        if (pressed != &field_ && pressed != this && pressed != entries_) combo_.closeList(false);
        return Event_Skip;
    }

  private:
    [[nodiscard]] wxPoint placeFor(const wxSize& size) const {
        const wxRect field(field_.GetScreenPosition(), field_.GetSize());
        const wxRect screen = wxDisplay(&field_).GetClientArea();
        const bool below =
            field.GetBottom() + size.y <= screen.GetBottom() || field.y - size.y < screen.y;
        return {field.x, below ? field.GetBottom() + 1 : field.y - size.y};
    }

    ComboField& field_;
    ComboBox& combo_;
    Entries* entries_ = nullptr;
};

ComboField::ComboField(ComboBox& combo, wxWindow& parent)
    : wxWindow(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxWANTS_CHARS | wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      combo_(combo),
      accessible_(ComboAccessible::of(*this, combo)) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Bind(wxEVT_PAINT, &ComboField::onPaint, this);
    Bind(wxEVT_LEFT_DOWN, &ComboField::onMouseDown, this);
    Bind(wxEVT_LEFT_DCLICK, &ComboField::onMouseDown, this);
    Bind(wxEVT_MOUSEWHEEL, &ComboField::onWheel, this);
    Bind(wxEVT_CHAR, &ComboField::onChar, this);
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        combo_.window()->userFocused(combo_);
        accessible_->changed();
        Refresh();
        event.Skip();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    });
}

ComboField::~ComboField() {
    delete popup_;
}

wxString ComboField::shownText() const {
    return textOf(combo_, combo_.listIndex());
}

int ComboField::wantedWidth() const {
    const auto& items = combo_.items();
    if (combo_.listCount() != entriesMeasured_) {
        const auto longest = std::max_element(
            items.begin(), items.end(), [](const ComboBox::Item& one, const ComboBox::Item& other) {
                return one.text.size() < other.text.size();
            });
        widestEntry_ = longest == items.end() ? 0 : GetTextExtent(wxText(longest->text)).x;
        entriesMeasured_ = combo_.listCount();
    }
    return widestEntry_ + FromDIP(2 * textMargin + 4 * arrowSize);
}

wxSize ComboField::DoGetBestClientSize() const {
    constexpr int borders = 4;
    return {wantedWidth(), GetCharHeight() + FromDIP(borders)};
}

void ComboField::syncWithModel() {
    Refresh();
    if (combo_.listOpen() && popup_ == nullptr) {
        popup_ = new Popup(*this, combo_);
    } else if (popup_ != nullptr && !combo_.listOpen()) {
        popup_->Hide();
        popup_->Destroy();
        popup_ = nullptr;
    } else if (popup_ != nullptr) {
        popup_->showMarked();
    }
    accessible_->changed();
}

void ComboField::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    const wxRect field(GetClientSize());
    const wxColour background = colourOf(combo_.backColor());
    const wxColour text =
        readableOn(background, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    const bool focused = HasFocus();
    const wxColour border =
        wxSystemSettings::GetColour(focused ? wxSYS_COLOUR_HIGHLIGHT : wxSYS_COLOUR_BTNSHADOW);
    dc.SetBrush(wxBrush(background));
    dc.SetPen(wxPen(border));
    dc.DrawRectangle(field);
    if (focused) dc.DrawRectangle(wxRect(field).Deflate(1));
    dc.SetFont(GetFont());
    dc.SetTextForeground(text);
    wxRect room = field;
    room.Deflate(FromDIP(textMargin), 1);
    room.width -= FromDIP(4 * arrowSize);
    drawText(dc, shownText(), room);
    paintArrow(dc, text);
}

void ComboField::paintArrow(wxDC& dc, const wxColour& colour) {
    const int size = FromDIP(arrowSize);
    const wxSize field = GetClientSize();
    const wxPoint corners[3] = {{0, 0}, {2 * size, 0}, {size, size}};
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colour));
    dc.DrawPolygon(3, corners, field.x - FromDIP(textMargin) - 2 * size, (field.y - size) / 2);
}

void ComboField::onMouseDown(wxMouseEvent&) {
    SetFocus();
    if (combo_.listOpen())
        combo_.closeList(false);
    else
        combo_.openList();
    syncFrameOf(*this);
}

void ComboField::onWheel(wxMouseEvent& event) {
    // A wheel that turns over a closed field must not change what is in it.
    if (!combo_.listOpen()) return event.Skip();
    combo_.defaultKey(event.GetWheelRotation() > 0 ? key::up : key::down, modifier::none);
}

void ComboField::onChar(wxKeyEvent& event) {
    const auto character = static_cast<char32_t>(event.GetUnicodeKey());
    const bool command = event.ControlDown() != event.AltDown();
    if (character < U' ' || character == WXK_DELETE || command) return event.Skip();
    combo_.window()->typeCharacter(character);
    syncFrameOf(*this);
}

}  // namespace catalogador::wx
