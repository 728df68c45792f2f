#pragma once
#include "form/fields/field.h"

namespace catalogador {

/// The field ValorSiNo. The tag of its check box is "1" in use and "0" otherwise; an F2 action of
/// the field replaces the "1", and then the number at its start decides.
class YesNoField : public Field {
  public:
    /// `label` is never shown: the check box has its own caption. `startsTicked` says whether a
    /// cleared field is ticked.
    YesNoField(std::string_view key, const char* column, Label& label, CheckBox& check,
               bool& startsTicked, std::span<std::uint8_t, 2> rules)
        : Field(key, column, label, rules), check_(check), startsTicked_(startsTicked) {}

    [[nodiscard]] CheckBox& check() const { return check_; }

    [[nodiscard]] bool used() const override;
    [[nodiscard]] Control* control() const override { return &check_; }
    void takeOut() override { check_.tag = "0"; }
    int configure(const FieldSetup& setup) override;
    void show(const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void clear() override { check_.setValue(startsTicked_ ? 1 : 0); }
    /// Null counts as no.
    void load(const rdoResultset& row, const Regional& regional) override;
    void store(rdoResultset& row, const Regional& regional) const override;
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override;
    [[nodiscard]] std::string contents() const override;

  private:
    CheckBox& check_;
    bool& startsTicked_;
};

}  // namespace catalogador
