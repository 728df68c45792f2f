#pragma once
#include <wx/control.h>
#include <wx/panel.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/controls/control.h"

namespace catalogador::wx {

/// A native control that shows a control of the model and hands the user's input to it.
class FieldView {
  public:
    explicit FieldView(Control& control) : control_(control) {}
    virtual ~FieldView() = default;
    FieldView(const FieldView&) = delete;
    FieldView& operator=(const FieldView&) = delete;

    [[nodiscard]] Control& control() const { return control_; }
    [[nodiscard]] virtual wxWindow& native() const = 0;
    /// Brings the native control to what the model says, but for its place.
    void sync();
    /// Where the model has it, in pixels.
    [[nodiscard]] wxRect modelPlace() const;
    /// Width in pixels that its content can make use of.
    [[nodiscard]] virtual int wantedWidth() const;
    /// Height in pixels that its content needs in a width; a caption breaks into lines for that.
    virtual int heightIn(int width);
    /// Where the layout has it, in pixels.
    void setPlace(const wxRect& place);
    /// Appends what it shows otherwise than the model.
    void describeDifferences(std::vector<std::string>& found) const;

  protected:
    virtual void syncContent() = 0;
    /// Contents of both sides as text, to compare them.
    [[nodiscard]] virtual std::string shownContent() const = 0;
    [[nodiscard]] virtual std::string modelContent() const = 0;
    /// What its text is written in, readable on the background that the model gives.
    [[nodiscard]] wxColour textColour() const;

  private:
    Control& control_;
    wxRect place_;
};

/// The view for a control of the model; null for controls that are shown otherwise (the panel).
std::unique_ptr<FieldView> makeFieldView(Control& control, wxWindow& parent);

}  // namespace catalogador::wx
