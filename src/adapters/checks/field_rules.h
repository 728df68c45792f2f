#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "adapters/checks/metadata.h"

namespace catalogador::checks {

/// The keys of the fields that there are, as the screen spells them.
constexpr std::string_view fieldKeys[] = {"TextoCorto", "TextoLargo", "Valor1",
                                          "Valor2",     "Valor3",     "ValorSiNo"};
bool isField(std::string_view key);
bool isValueField(std::string_view key);

/// What a field is on the screen.
enum class FieldKind { hidden, text, number, combo, check };
FieldKind kindOf(const FieldRow& field);

/// The view that the screen reads from an F2 action: 0 when it reads none, nullopt when reading
/// it fails.
std::optional<std::int64_t> f2Target(const std::string& action);

/// The letter after the "&" of a caption, in capitals; empty when there is none.
std::string mnemonicOf(const std::string& caption);

}  // namespace catalogador::checks
