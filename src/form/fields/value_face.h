#pragma once
#include <optional>
#include <string>

#include "form/fields/field.h"

namespace catalogador {

/// What a value field is shown as, by the numbers of ACoTipo and of the tag of its label.
enum class FieldKind { unused = 0, text = 1, combo = 2, checkLeft = 3, checkRight = 4 };

/// One of the ways in which a value field is shown: what each verb of the field does for its kind.
class ValueFace {
  public:
    virtual ~ValueFace() = default;

    /// The control that holds the value, nullptr for none.
    [[nodiscard]] virtual Control* control() const = 0;
    /// Whether the label is shown, and not the caption of the control itself.
    [[nodiscard]] virtual bool labelShown() const { return false; }
    /// Whether the label asks for room in the column of labels.
    [[nodiscard]] virtual bool labelCounts() const { return true; }
    virtual void configure(const FieldSetup& /*setup*/) {}
    virtual void show(const std::string& /*caption*/, const FieldFrame& /*frame*/) {}
    /// Places the control under `top`; gives the lower edge of the stack.
    virtual int stack(int /*top*/) = 0;
    virtual void enable(bool /*editing*/, Color /*color*/) {}
    /// `value` is not Null.
    virtual void load(const Variant& /*value*/, const Regional& /*regional*/) {}
    /// The value for the column; Null for none.
    [[nodiscard]] virtual Variant stored(const Regional& /*regional*/) const { return Null{}; }
    /// Whether there is no value; check boxes always have one.
    [[nodiscard]] virtual bool empty() const { return false; }
    [[nodiscard]] virtual bool noNumber(const Regional& /*regional*/) const { return false; }
    [[nodiscard]] virtual std::optional<UniqueValue> uniqueValue() const { return std::nullopt; }
    [[nodiscard]] virtual TokenValue tokenValue(const Regional& regional) const = 0;
};

/// A number typed into a text box.
class NumberFace : public ValueFace {
  public:
    explicit NumberFace(TextBox& box) : box_(box) {}
    [[nodiscard]] Control* control() const override { return &box_; }
    [[nodiscard]] bool labelShown() const override { return true; }
    void configure(const FieldSetup& setup) override;
    void show(const std::string& caption, const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void load(const Variant& value, const Regional& regional) override;
    [[nodiscard]] Variant stored(const Regional& regional) const override;
    [[nodiscard]] bool empty() const override { return trimmedText(box_).empty(); }
    [[nodiscard]] bool noNumber(const Regional& regional) const override;
    [[nodiscard]] std::optional<UniqueValue> uniqueValue() const override;
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override;

  private:
    TextBox& box_;
};

/// An entry of a list, stored as its code.
class ComboFace : public ValueFace {
  public:
    /// `box` is the text box of the same field, which the combo is aligned with.
    ComboFace(ComboBox& combo, TextBox& box) : combo_(combo), box_(box) {}
    [[nodiscard]] Control* control() const override { return &combo_; }
    [[nodiscard]] bool labelShown() const override { return true; }
    /// Keeps the source of the list in the combo's tag.
    void configure(const FieldSetup& setup) override;
    void show(const std::string& caption, const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void load(const Variant& value, const Regional& regional) override;
    [[nodiscard]] Variant stored(const Regional& regional) const override;
    [[nodiscard]] bool empty() const override { return combo_.listIndex() == -1; }
    [[nodiscard]] std::optional<UniqueValue> uniqueValue() const override;
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override;

  private:
    ComboBox& combo_;
    TextBox& box_;
};

/// No control at all. In statements the field still has the value of its check box, which is
/// hidden.
class UnusedFace : public ValueFace {
  public:
    explicit UnusedFace(CheckBox& check) : check_(check) {}
    [[nodiscard]] Control* control() const override { return nullptr; }
    int stack(int top) override { return top; }
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override;

  protected:
    [[nodiscard]] CheckBox& check() const { return check_; }

  private:
    CheckBox& check_;
};

/// A check box with its own caption.
class CheckFace : public UnusedFace {
  public:
    /// `alignment` as of CheckBox.
    CheckFace(CheckBox& check, int alignment) : UnusedFace(check), alignment_(alignment) {}
    [[nodiscard]] Control* control() const override { return &check(); }
    /// The label of a box left of its caption is as hidden as the other one's, which counts.
    [[nodiscard]] bool labelCounts() const override { return alignment_ != 0; }
    void show(const std::string& caption, const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void load(const Variant& value, const Regional& regional) override;
    [[nodiscard]] Variant stored(const Regional& regional) const override;

  private:
    int alignment_;
};

}  // namespace catalogador
