#pragma once
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/variant.h"

namespace catalogador::views {

/// What a column of the metadata holds.
enum class Contents { text, smallNumber, longNumber, number };

struct Column {
    std::string_view name;
    Contents contents;
};

/// The columns of Catalogador; the view's number is the first.
std::span<const Column> viewColumns();
/// Those of CatalogadorControles but for the view's number; the field's key is the first.
std::span<const Column> fieldColumns();
/// Those of genForaneas but for the view's name; the order is the first.
std::span<const Column> ruleColumns();
/// Those of accPermisos with the user's name in the place of his or her number, and without the
/// option.
std::span<const Column> rightColumns();

/// Values in the order of such columns: Null, a whole number, a number with decimals, or a text.
using Row = std::vector<Variant>;

/// How the screen script of a view is played.
struct TestCall {
    /// Names of files, from the folder of the view's file.
    std::string script;
    std::string expected;
    /// Who works with the screen; empty for whoever runs the program.
    std::string user;
    std::int16_t company = 1;
    std::int16_t language = 1;
    std::string locale = "C";
    std::string appKey = "VEM04";
};

/// All that describes one view.
struct View {
    Row view;
    std::vector<Row> fields;
    /// Whether its codes are drawn from a sequence, which bears the view's name.
    bool hasSequence = false;
    std::vector<Row> rules;
    std::vector<Row> rights;
    /// Findings that are not told for this view.
    std::vector<int> ignored;
    std::optional<TestCall> test;

    [[nodiscard]] std::int64_t number() const;
    /// Empty when it has none.
    [[nodiscard]] std::string name() const;
    /// The option that a user needs rights for; empty when everybody may open the view.
    [[nodiscard]] std::string option() const;

    /// Whether the database would be the same: what is ignored and the test do not count.
    [[nodiscard]] bool describesTheSameAs(const View& other) const;
};

/// The place of a column, which has to exist.
std::size_t placeOf(std::span<const Column> columns, std::string_view name);
/// A value of a row of Catalogador.
const Variant& valueOf(const View& view, std::string_view column);

/// The value as a column of these contents keeps it in a View: 7590.0 is 7590, a single-precision
/// number has no digits that it does not need. nullopt for a value that the column cannot hold.
std::optional<Variant> fitting(const Variant& value, Contents contents);
/// "a whole number from -32768 to 32767".
std::string_view nameOf(Contents contents);

/// Orders fields as the screen shows them, rules and rights as they are asked and listed, so that a
/// file says the same whatever order the database gives rows in. Rows of one key keep their order.
void putInOrder(View& view);

}  // namespace catalogador::views
