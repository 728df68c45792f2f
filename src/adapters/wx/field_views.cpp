#include "adapters/wx/field_views.h"

#include <wx/checkbox.h>
#include <wx/settings.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <array>

#include "adapters/wx/accessible_names.h"
#include "adapters/wx/appearance.h"
#include "adapters/wx/captions.h"
#include "adapters/wx/combo_field.h"
#include "adapters/wx/grid_view.h"
#include "adapters/wx/text_input.h"
#include "platform/controls/fields.h"
#include "platform/controls/record_grid.h"
#include "platform/controls/window.h"
#include "runtime/text.h"

namespace catalogador::wx {

namespace {

/// Pixels at 96 dpi that a box takes of a check box, and the borders of a field.
constexpr int checkMargin = 10;
constexpr int fieldPadding = 12;

/// Lower fields cut their texts. The toolkit's own answer forgets the text of a box.
int fieldHeight(const wxWindow& native) {
    constexpr int borders = 4;
    return native.GetCharHeight() + native.FromDIP(borders);
}

class LabelView : public FieldView {
  public:
    LabelView(Label& label, wxWindow& parent)
        : FieldView(label),
          label_(label),
          native_(new wxStaticText(&parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE)) {}
    [[nodiscard]] wxWindow& native() const override { return *native_; }
    [[nodiscard]] int wantedWidth() const override { return captionWidth(*native_, shown()); }
    int heightIn(int width) override {
        caption_.fit(*native_, shown(), width);
        return native_->GetBestSize().GetHeight();
    }

  protected:
    void syncContent() override {}
    [[nodiscard]] std::string shownContent() const override {
        return utf8Text(caption_.unbroken(*native_));
    }
    [[nodiscard]] std::string modelContent() const override { return utf8Text(shown()); }

  private:
    [[nodiscard]] wxString shown() const {
        return withRequiredMark(label_.caption(), label_.required());
    }

    Label& label_;
    wxStaticText* native_;
    BrokenCaption caption_;
};

class TextView : public FieldView {
  public:
    TextView(TextBox& box, wxWindow& parent)
        : FieldView(box), box_(box), native_(new wxTextCtrl(&parent, wxID_ANY)) {
        bindTextInput(*native_, box);
    }
    [[nodiscard]] wxWindow& native() const override { return *native_; }
    [[nodiscard]] int wantedWidth() const override {
        return box_.maxLength() * native_->GetTextExtent("n").x + native_->FromDIP(fieldPadding);
    }
    int heightIn(int /*width*/) override { return fieldHeight(*native_); }

  protected:
    void syncContent() override { syncText(*native_, box_); }
    [[nodiscard]] std::string shownContent() const override {
        return utf8Text(native_->GetValue());
    }
    [[nodiscard]] std::string modelContent() const override { return box_.text(); }

  private:
    TextBox& box_;
    wxTextCtrl* native_;
};

class ComboView : public FieldView {
  public:
    ComboView(ComboBox& combo, wxWindow& parent)
        : FieldView(combo), combo_(combo), native_(new ComboField(combo, parent)) {}
    [[nodiscard]] wxWindow& native() const override { return *native_; }
    [[nodiscard]] int wantedWidth() const override { return native_->wantedWidth(); }
    int heightIn(int /*width*/) override { return fieldHeight(*native_); }

  protected:
    void syncContent() override { native_->syncWithModel(); }
    [[nodiscard]] std::string shownContent() const override {
        return utf8Text(native_->shownText());
    }
    [[nodiscard]] std::string modelContent() const override {
        const int index = combo_.listIndex();
        return index < 0 ? std::string() : combo_.items()[static_cast<std::size_t>(index)].text;
    }

  private:
    ComboBox& combo_;
    ComboField* native_;
};

class CheckView : public FieldView {
  public:
    CheckView(CheckBox& box, wxWindow& parent) : FieldView(box), box_(box), parent_(parent) {
        create();
    }
    [[nodiscard]] wxWindow& native() const override { return *native_; }
    [[nodiscard]] int wantedWidth() const override {
        return boxWidth_ + captionWidth(*native_, wxText(box_.caption()));
    }
    int heightIn(int width) override {
        caption_.fit(*native_, wxText(box_.caption()), width - boxWidth_);
        return native_->GetBestSize().GetHeight();
    }

  protected:
    void syncContent() override {
        if (alignment_ != box_.alignment()) {
            native_->Destroy();
            create();
        }
        if (native_->GetValue() != (box_.value() == 1)) native_->SetValue(box_.value() == 1);
    }
    [[nodiscard]] std::string shownContent() const override {
        return utf8Text(caption_.unbroken(*native_)) + (native_->GetValue() ? " [x]" : " [ ]");
    }
    [[nodiscard]] std::string modelContent() const override {
        return box_.caption() + (box_.value() == 1 ? " [x]" : " [ ]");
    }

  private:
    // The side of the box is a style that a native check box has from its birth.
    void create() {
        alignment_ = box_.alignment();
        native_ = new wxCheckBox(&parent_, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                 alignment_ == 1 ? wxALIGN_RIGHT : 0);
        boxWidth_ = native_->GetBestSize().GetWidth() + native_->FromDIP(checkMargin);
        caption_ = {};
        native_->Bind(wxEVT_CHECKBOX,
                      [this](wxCommandEvent&) { box_.setValue(native_->GetValue() ? 1 : 0); });
        native_->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
            box_.window()->userFocused(box_);
            event.Skip();
        });
    }

    CheckBox& box_;
    wxWindow& parent_;
    wxCheckBox* native_ = nullptr;
    BrokenCaption caption_;
    /// What the caption does not get of its width.
    int boxWidth_ = 0;
    int alignment_ = 0;
};

class RecordGridView : public FieldView {
  public:
    RecordGridView(RecordGrid& grid, wxWindow& parent)
        : FieldView(grid), grid_(grid), native_(new GridView(grid, parent)) {}
    [[nodiscard]] wxWindow& native() const override { return *native_; }

  protected:
    void syncContent() override { native_->syncWithModel(); }
    [[nodiscard]] std::string shownContent() const override {
        return decimalText(native_->shownRows());
    }
    [[nodiscard]] std::string modelContent() const override {
        return decimalText(grid_.visibleRows());
    }

  private:
    RecordGrid& grid_;
    GridView* native_;
};

template <class View, class Model>
std::unique_ptr<FieldView> viewOf(Control& control, wxWindow& parent) {
    auto* model = dynamic_cast<Model*>(&control);
    return model == nullptr ? nullptr : std::make_unique<View>(*model, parent);
}

}  // namespace

wxRect FieldView::modelPlace() const {
    wxWindow& shown = native();
    const Rect& place = control_.place();
    return {pixelsOf(shown, place.left), pixelsOf(shown, place.top), pixelsOf(shown, place.width),
            pixelsOf(shown, place.height)};
}

int FieldView::wantedWidth() const {
    return modelPlace().width;
}

int FieldView::heightIn(int /*width*/) {
    return modelPlace().height;
}

void FieldView::setPlace(const wxRect& place) {
    place_ = place;
    if (native().GetRect() != place) native().SetSize(place);
}

void FieldView::sync() {
    syncContent();
    wxWindow& shown = native();
    if (dynamic_cast<const TextBox*>(&control_) != nullptr ||
        dynamic_cast<const RecordGrid*>(&control_) != nullptr) {
        const wxColour colour = colourOf(control_.backColor());
        if (shown.GetBackgroundColour() != colour) shown.SetBackgroundColour(colour);
    }
    const wxColour text = textColour();
    if (shown.GetForegroundColour() != text) shown.SetForegroundColour(text);
    if (shown.IsThisEnabled() != control_.enabled()) shown.Enable(control_.enabled());
    if (shown.IsShown() != control_.visible()) shown.Show(control_.visible());
    if (dynamic_cast<const Label*>(&control_) == nullptr)
        tellState(shown, control_.required(), wxText(control_.problem()));
}

wxColour FieldView::textColour() const {
    // The model fixes backgrounds; the text has to be readable on them under every theme.
    const bool onPanel = dynamic_cast<const Label*>(&control_) != nullptr ||
                         dynamic_cast<const CheckBox*>(&control_) != nullptr;
    const wxColour background =
        onPanel ? native().GetParent()->GetBackgroundColour() : colourOf(control_.backColor());
    const wxColour usual = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    return control_.enabled() || !onPanel ? readableOn(background, usual)
                                          : disabledOn(background, usual);
}

void FieldView::describeDifferences(std::vector<std::string>& found) const {
    const wxWindow& shown = native();
    const auto note = [&](const std::string& what) {
        found.push_back(control_.name() + ": " + what);
    };
    if (shown.IsShown() != control_.visible()) note("is shown otherwise than the model says");
    if (!control_.visible()) return;
    if (shown.IsThisEnabled() != control_.enabled()) note("is enabled otherwise");
    if (shownContent() != modelContent())
        note("shows \"" + shownContent() + "\" instead of \"" + modelContent() + "\"");
    if (shown.GetPosition() != place_.GetPosition()) note("stands elsewhere");
    if (shown.GetSize().GetHeight() < shown.GetCharHeight() &&
        dynamic_cast<const RecordGrid*>(&control_) == nullptr)
        note("is lower than its text");
}

std::unique_ptr<FieldView> makeFieldView(Control& control, wxWindow& parent) {
    using Maker = std::unique_ptr<FieldView> (*)(Control&, wxWindow&);
    constexpr std::array<Maker, 5> makers{viewOf<LabelView, Label>, viewOf<TextView, TextBox>,
                                          viewOf<ComboView, ComboBox>, viewOf<CheckView, CheckBox>,
                                          viewOf<RecordGridView, RecordGrid>};
    for (const Maker make : makers)
        if (auto view = make(control, parent)) return view;
    return nullptr;
}

}  // namespace catalogador::wx
