#pragma once
#include <string>
#include <string_view>

namespace catalogador {

/// Whether accents count when texts are compared.
enum class Accents { count, ignored };

/// The text with every Latin, Greek and Cyrillic letter replaced by the letter that its accent
/// stands on ("Perú" gives "Peru"), and without accents that are characters of their own.
std::string withoutAccents(std::string_view text);

}  // namespace catalogador
