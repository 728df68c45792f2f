#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/rdo.h"
#include "runtime/regional.h"

namespace catalogador {

/// A row of CatalogadorControles, which configures one field. Columns are read when they are asked
/// for; a column that is missing or holds the wrong kind of value raises RuntimeError then.
class FieldRow {
  public:
    /// Both must outlive the object, which reads the current row of `row`.
    FieldRow(const rdoResultset& row, const Regional& regional) : row_(row), regional_(regional) {}

    /// Which field the row configures: "TextoCorto", "Valor1" and so on.
    [[nodiscard]] std::string key() const { return text("ACoKeyControl"); }
    [[nodiscard]] std::string caption() const { return text("ACoCaption"); }
    /// In characters; 60 where the row leaves it out.
    [[nodiscard]] int maxLength() const;
    /// The number of a FieldKind, or any other number; nullopt where the row leaves it out.
    [[nodiscard]] std::optional<std::int32_t> kind() const;
    /// A statement, or a list "code,text;code,text".
    [[nodiscard]] std::string comboSource() const { return text("ACoDatosCombo"); }
    /// Whether the yes/no field of a new record is ticked.
    [[nodiscard]] bool startsTicked() const;
    /// Sets the required flag and the duplicate flag, apart from those that the row leaves out.
    void readRules(std::span<std::uint8_t, 2> rules) const;
    /// Puts the F2 action into a tag; the tag stays as it is where the row has none.
    void readF2Action(std::string& tag) const;

  private:
    [[nodiscard]] std::string text(const char* column) const;

    const rdoResultset& row_;
    const Regional& regional_;
};

}  // namespace catalogador
