#pragma once
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "form/fields/field_row.h"
#include "platform/controls/fields.h"
#include "platform/rdo.h"
#include "runtime/regional.h"
#include "runtime/text.h"

namespace catalogador {

/// What a field is given of the screen while its row of the metadata is read.
struct FieldSetup {
    const FieldRow& row;
    const Panel& panel;
    /// Whether the view offers the field at all.
    bool offered = true;
    /// Fills a combo from a statement or a list.
    std::function<void(ComboBox& combo, const std::string& source)> fillCombo;
};

/// Where the controls of the fields stand in the panel, in twips.
struct FieldFrame {
    /// Left edge of text boxes and combos.
    int column = 0;
    int checkLeft = 0;
    int checkWidth = 0;
};

/// What takes the place of a field's token in a statement, and how the token is looked for.
struct TokenValue {
    std::string text;
    Compare how = Compare::text;
};

/// A value that no other record of the view may have; the empty text is not looked for.
struct UniqueValue {
    std::string text;
    bool numeric = false;
};

/// A field of the screen: a caption, the control that holds its value, and the column of
/// genCodigoTexto that the value is stored in. Positions are twips in the panel.
///
/// The controls and the rule flags belong to the screen and must outlive the field.
class Field {
  public:
    /// `key` is the field's name in the metadata and in the tokens of statements; `rules` are its
    /// two flags of mbytReglasCampo.
    Field(std::string_view key, const char* column, Label& label, std::span<std::uint8_t, 2> rules)
        : key_(key), column_(column), label_(label), rules_(rules) {}
    virtual ~Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;

    [[nodiscard]] const std::string& key() const { return key_; }
    [[nodiscard]] const char* column() const { return column_; }
    [[nodiscard]] Label& label() const { return label_; }
    [[nodiscard]] bool required() const { return rules_[0] == 1; }
    [[nodiscard]] bool unique() const { return rules_[1] == 1; }

    /// Whether the view uses the field.
    [[nodiscard]] virtual bool used() const = 0;
    /// The control that holds the value, nullptr while no one does.
    [[nodiscard]] virtual Control* control() const = 0;
    /// Where Enter in an earlier field leads to; nullptr for a field that is not used.
    [[nodiscard]] Control* stop() const { return used() ? control() : nullptr; }

    /// Takes the field out of use, as before its row of the metadata is read.
    virtual void takeOut() = 0;
    /// Reads the field's row of the metadata; gives the width that its caption asks for.
    virtual int configure(const FieldSetup& setup) = 0;
    /// Shows the controls of a field that is used and hides the others.
    virtual void show(const FieldFrame& frame) = 0;
    /// Stacks a field that is used under `top`; gives the lower edge of the stack.
    virtual int stack(int top) = 0;
    /// `color` is the background of controls with an edit area.
    virtual void enable(bool editing, Color color) = 0;

    virtual void clear() = 0;
    /// Shows the value of the current row; Null leaves what is shown. Raises RuntimeError for a
    /// value of the wrong kind.
    virtual void load(const rdoResultset& row, const Regional& regional) = 0;
    /// Sets the column of the row that is being written. Raises typeMismatch for a text that is
    /// no number where the column wants one.
    virtual void store(rdoResultset& row, const Regional& regional) const = 0;

    /// Whether a required field lacks its value.
    [[nodiscard]] virtual bool missing() const { return false; }
    /// Whether what was typed should be a number and is none.
    [[nodiscard]] virtual bool noNumber(const Regional& /*regional*/) const { return false; }
    /// nullopt where the field's kind has no values to compare.
    [[nodiscard]] virtual std::optional<UniqueValue> uniqueValue() const { return std::nullopt; }
    [[nodiscard]] virtual TokenValue tokenValue(const Regional& regional) const = 0;
    /// Whether the field holds that text, typed by the user, blanks around it apart.
    [[nodiscard]] virtual bool holdsText(std::string_view /*text*/) const { return false; }
    /// What all controls of the field hold, to see whether it has changed.
    [[nodiscard]] virtual std::string contents() const = 0;

  protected:
    [[nodiscard]] std::span<std::uint8_t, 2> rules() const { return rules_; }

  private:
    std::string key_;
    const char* column_;
    Label& label_;
    std::span<std::uint8_t, 2> rules_;
};

/// Gives a check box its caption, its place in the panel and the panel's colour.
void showCheck(CheckBox& check, const std::string& caption, const FieldFrame& frame);

/// A typed number as statements and columns take it, whatever the separators of the user are;
/// raises typeMismatch for anything else.
std::string numberForDatabase(const std::string& typed, const Regional& regional);

/// The text of a box without the blanks around it.
std::string trimmedText(const TextBox& box);

constexpr Color panelColor{0x00DECFCE};

namespace field_gap {
/// From the lower edge of one field to the next one, in twips: a caption or check box stands lower
/// than an edit box, so that both texts are on one line.
constexpr int label = 100;
constexpr int box = 75;
}  // namespace field_gap

/// The lower edge of a control.
inline int bottomOf(const Control& control) {
    return control.top() + control.height();
}

}  // namespace catalogador
