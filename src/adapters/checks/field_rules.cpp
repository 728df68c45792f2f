#include "adapters/checks/field_rules.h"

#include <algorithm>
#include <iterator>

#include "adapters/checks/numbers.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::checks {

bool isField(std::string_view key) {
    return std::find(std::begin(fieldKeys), std::end(fieldKeys), key) != std::end(fieldKeys);
}

bool isValueField(std::string_view key) {
    return key == "Valor1" || key == "Valor2" || key == "Valor3";
}

FieldKind kindOf(const FieldRow& field) {
    if (field.key == "ValorSiNo") return FieldKind::check;
    if (!isField(field.key)) return FieldKind::hidden;
    if (!isValueField(field.key)) return FieldKind::text;
    switch (wholeNumber(orEmpty(field.kind)).value_or(0)) {
        case 1:
            return FieldKind::number;
        case 2:
            return FieldKind::combo;
        case 3:
        case 4:
            return FieldKind::check;
        default:
            return FieldKind::hidden;
    }
}

std::optional<std::int64_t> f2Target(const std::string& action) {
    try {
        return toLong(Variant(leadingNumber(action)), Regional{});
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::string mnemonicOf(const std::string& caption) {
    for (std::size_t at = caption.find('&'); at != std::string::npos;
         at = caption.find('&', at + 2)) {
        const std::string_view after = std::string_view(caption).substr(at + 1);
        if (!after.empty() && after.front() != '&' && after.front() != ' ')
            return upperCase(leftCharacters(after, 1));
    }
    return {};
}

}  // namespace catalogador::checks
