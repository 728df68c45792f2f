#pragma once
#include <string>
#include <string_view>

namespace catalogador {

/// A UTF-8 text in UTF-16. Bytes that are no UTF-8 become U+FFFD.
std::u16string utf16Of(std::string_view text);
/// The way back. A surrogate without its other half becomes U+FFFD.
std::string utf8Of(std::u16string_view text);

}  // namespace catalogador
