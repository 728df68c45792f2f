#pragma once
#include "form/fields/field.h"

namespace catalogador {

/// A field that holds a text: TextoCorto or TextoLargo. In use, the tag of its label is the
/// field's number, 1 or 2; otherwise it is "0".
class TextField : public Field {
  public:
    TextField(std::string_view key, const char* column, Label& label, TextBox& box,
              std::span<std::uint8_t, 2> rules)
        : Field(key, column, label, rules), box_(box) {}

    [[nodiscard]] TextBox& box() const { return box_; }

    [[nodiscard]] bool used() const override { return used_; }
    [[nodiscard]] Control* control() const override { return &box_; }
    void takeOut() override;
    int configure(const FieldSetup& setup) override;
    void show(const FieldFrame& frame) override;
    int stack(int top) override;
    void enable(bool editing, Color color) override;
    void clear() override { box_.setText(""); }
    void load(const rdoResultset& row, const Regional& regional) override;
    [[nodiscard]] std::optional<UniqueValue> uniqueValue() const override;
    [[nodiscard]] TokenValue tokenValue(const Regional& regional) const override;
    [[nodiscard]] bool holdsText(std::string_view text) const override;
    [[nodiscard]] std::string contents() const override { return box_.text() + '\n'; }

  private:
    [[nodiscard]] virtual const char* tagInUse() const = 0;
    /// The column as the statement that loads the record spells it.
    [[nodiscard]] virtual const char* columnToRead() const { return column(); }

    TextBox& box_;
    bool used_ = false;
};

/// TextoCorto. Blanks alone count as a value; a view without the field stores the record's code.
class ShortTextField : public TextField {
  public:
    using TextField::TextField;
    int stack(int top) override;
    void store(rdoResultset& row, const Regional& regional) const override;
    [[nodiscard]] bool missing() const override { return required() && box().text().empty(); }

  private:
    [[nodiscard]] const char* tagInUse() const override { return "1"; }
    [[nodiscard]] const char* columnToRead() const override { return "CTETextoCorto"; }
};

/// TextoLargo. Blanks alone are no value; without a text Null is stored.
class LongTextField : public TextField {
  public:
    using TextField::TextField;
    void store(rdoResultset& row, const Regional& regional) const override;
    [[nodiscard]] bool missing() const override { return required() && trimmedText(box()).empty(); }

  private:
    [[nodiscard]] const char* tagInUse() const override { return "2"; }
};

}  // namespace catalogador
