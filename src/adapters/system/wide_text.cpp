#include "adapters/system/wide_text.h"

#include "runtime/utf16.h"

namespace catalogador::system {

std::wstring wideOf(std::string_view text) {
    const std::u16string units = utf16Of(text);
    return {units.begin(), units.end()};
}

std::string utf8Of(std::wstring_view text) {
    return catalogador::utf8Of(std::u16string(text.begin(), text.end()));
}

}  // namespace catalogador::system
