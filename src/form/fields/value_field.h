#pragma once
#include "form/fields/value_face.h"

namespace catalogador {

/// A field that holds a number, Valor1 to Valor3: typed, chosen from a list, or ticked. The tag of
/// its label is the number of its kind.
class ValueField : public Field {
  public:
    ValueField(std::string_view key, const char* column, Label& label, TextBox& box,
               ComboBox& combo, CheckBox& check, std::span<std::uint8_t, 2> rules);

    /// The text box also carries the F2 action of the field, whatever its kind.
    [[nodiscard]] TextBox& box() const { return box_; }
    [[nodiscard]] ComboBox& combo() const { return combo_; }
    [[nodiscard]] CheckBox& check() const { return check_; }
    [[nodiscard]] FieldKind kind() const { return kind_; }

    [[nodiscard]] bool used() const override { return kind_ != FieldKind::unused; }
    [[nodiscard]] Control* control() const override { return face_->control(); }
    void takeOut() override { setKind(FieldKind::unused); }
    int configure(const FieldSetup& setup) override;
    void show(const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void clear() override;
    void load(const rdoResultset& row, const Regional& regional) override;
    void store(rdoResultset& row, const Regional& regional) const override;
    [[nodiscard]] bool missing() const override { return required() && face_->empty(); }
    [[nodiscard]] bool noNumber(const Regional& regional) const override {
        return face_->noNumber(regional);
    }
    [[nodiscard]] std::optional<UniqueValue> uniqueValue() const override {
        return face_->uniqueValue();
    }
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override {
        return face_->tokenValue(regional);
    }
    [[nodiscard]] bool holdsText(std::string_view text) const override;
    [[nodiscard]] std::string contents() const override;

  private:
    void setKind(FieldKind kind);
    ValueFace& faceOf(FieldKind kind);

    TextBox& box_;
    ComboBox& combo_;
    CheckBox& check_;
    UnusedFace unusedFace_;
    NumberFace numberFace_;
    ComboFace comboFace_;
    CheckFace checkLeftFace_, checkRightFace_;
    FieldKind kind_ = FieldKind::unused;
    ValueFace* face_ = &unusedFace_;
};

}  // namespace catalogador
