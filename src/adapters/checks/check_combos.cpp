#include <algorithm>
#include <map>

#include "adapters/checks/context.h"
#include "adapters/checks/field_rules.h"
#include "adapters/checks/numbers.h"
#include "adapters/checks/sql_reading.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::size_t shownCodes = 3;

/// The entries that a combo will have, as far as they can be read.
class Entries {
  public:
    Entries(const Context& context, Place place) : context_(context), place_(std::move(place)) {}

    /// An entry of a statement. Gives whether the screen goes on to the next one.
    bool add(std::string_view code, bool textIsNull, std::string_view text) {
        const auto number = codeOf(code);
        if (!number) return stop(kind::comboCodeNoNumber, code.data() == nullptr ? "Null" : code);
        if (textIsNull) return stop(kind::comboTextNull, code);
        keep(*number, text);
        return true;
    }
    /// An entry of a list.
    bool addItem(const std::string& item) {
        const std::vector<std::string> parts = splitText(item, ",");
        if (!isNumeric(Variant(parts[0]), Regional{})) {
            tell(kind::itemCodeNoNumber, shortened(item));
            return true;
        }
        if (parts.size() < 2) return stop(kind::itemComma, item);
        if (parts.size() > 2) tell(kind::itemTextCut, item);
        const auto number = codeOf(parts[0]);
        if (!number) return stop(kind::comboCodeNoNumber, parts[0]);
        keep(*number, parts[1]);
        return true;
    }

    [[nodiscard]] bool empty() const { return codes_.empty(); }
    [[nodiscard]] bool complete() const { return complete_; }
    [[nodiscard]] bool has(std::int64_t code) const { return codes_.contains(code); }

  private:
    static std::optional<std::int64_t> codeOf(std::string_view text) {
        try {
            return toLong(Variant(text), Regional{});
        } catch (const RuntimeError&) {
            return std::nullopt;
        }
    }

    void keep(std::int64_t code, std::string_view text) {
        if (++codes_[code] == 2) tell(kind::comboCodeTwice, decimalText(code));
        if (trim(text).empty()) tell(kind::comboTextEmpty, decimalText(code));
    }

    bool stop(int number, std::string_view what) {
        complete_ = false;
        tell(number, what);
        return false;
    }

    /// Each kind is told once for a combo.
    void tell(int number, std::string_view what) {
        if (std::find(told_.begin(), told_.end(), number) != told_.end()) return;
        told_.push_back(number);
        context_.findings.add(number, place_, what);
    }

    const Context& context_;
    Place place_;
    std::map<std::int64_t, int> codes_;
    std::vector<int> told_;
    bool complete_ = true;
};

/// Gives whether the entries are known.
bool readStatement(const Context& context, const Place& place, const std::string& source,
                   Entries& entries) {
    const std::string sql =
        replaceText(source, "[prmIdEmpresa]", decimalText(context.options.company), Compare::text);
    for (const std::string& placeholder : placeholdersOf(sql))
        if (beginsWith(placeholder, "[PRM")) {
            context.findings.add(kind::comboPlaceholder, place, placeholder);
            return false;
        }
    try {
        if (context.database.plan(sql).writes) {
            context.findings.add(kind::comboWrites, place);
            return false;
        }
        bool known = true;
        context.database.read(sql, [&](rdoResultset& rows) {
            known = rows.columnCount() >= 2;
            if (!known) return;
            for (; !rows.atEnd(); rows.MoveNext()) {
                const Variant text = rows.value(1);
                const std::string code = toTextOrEmpty(rows.value(0), Regional{});
                const bool noCode = rows.value(0).isNull();
                if (!entries.add(noCode ? std::string_view() : std::string_view(code),
                                 text.isNull(), toTextOrEmpty(text, Regional{})))
                    break;
            }
        });
        if (!known) context.findings.add(kind::comboColumns, place);
        return known;
    } catch (const RuntimeError& error) {
        context.findings.add(kind::comboFails, place, error.description());
        return false;
    }
}

bool readList(const Context& context, const Place& place, const std::string& source,
              Entries& entries) {
    std::vector<std::string> items = splitText(source, ";");
    std::erase_if(items, [](const std::string& item) { return item.empty(); });
    const bool noCode = std::none_of(items.begin(), items.end(), [](const std::string& item) {
        return isNumeric(Variant(splitText(item, ",")[0]), Regional{});
    });
    if (noCode) {
        context.findings.add(kind::comboSourceNoSelect, place, shortened(source));
        return false;
    }
    for (const std::string& item : items)
        if (!entries.addItem(item)) break;
    return true;
}

void compareStored(const Context& context, const FieldRow& field, const Place& place,
                   const Entries& entries) {
    const auto records = context.metadata.records.find(field.view);
    if (records == context.metadata.records.end()) return;
    const auto index = static_cast<std::size_t>(field.key.back() - '1');
    std::string unknown;
    std::size_t count = 0;
    for (const std::string& value : records->second.values.at(index)) {
        const auto code = wholeNumber(value);
        if (code && entries.has(*code)) continue;
        if (++count <= shownCodes) unknown += (count == 1 ? "" : ", ") + value;
    }
    if (count > shownCodes) unknown += ", …";
    if (count > 0) context.findings.add(kind::comboCodeUnknown, place, unknown);
}

void checkCombo(const Context& context, const FieldRow& field) {
    const Place place = ofField(field, "ACoDatosCombo");
    const std::string& source = orEmpty(field.source);
    if (trim(source).empty()) {
        context.findings.add(kind::comboSourceEmpty, place);
        return;
    }
    Entries entries(context, place);
    const bool known = beginsWith(source, "SELECT") ? readStatement(context, place, source, entries)
                                                    : readList(context, place, source, entries);
    if (!known || !entries.complete()) return;
    if (entries.empty() && wholeNumber(orEmpty(field.required)) == 1)
        context.findings.add(kind::requiredComboEmpty, place);
    // Another company's records have another company's entries.
    if (!containsText(source, "[prmIdEmpresa]", Compare::text))
        compareStored(context, field, place, entries);
}

}  // namespace

void checkCombos(const Context& context, const ViewRow& view) {
    for (const FieldRow& field : view.fields)
        if (kindOf(field) == FieldKind::combo) checkCombo(context, field);
}

}  // namespace catalogador::checks
