#include <windows.h>

#include <algorithm>
#include <array>

#include "adapters/services/installed_locale.h"
#include "adapters/system/wide_text.h"

namespace catalogador::services {

namespace {

std::string localeText(const wchar_t* locale, LCTYPE item) {
    std::array<wchar_t, 80> text{};
    const int length = GetLocaleInfoEx(locale, item, text.data(), static_cast<int>(text.size()));
    return length > 0 ? system::utf8Of(text.data()) : std::string();
}

Regional regionalFrom(const wchar_t* locale, LCTYPE flags) {
    Regional regional;
    if (const std::string decimal = localeText(locale, LOCALE_SDECIMAL | flags); !decimal.empty())
        regional.decimal = decimal;
    const std::string thousands = localeText(locale, LOCALE_STHOUSAND | flags);
    regional.thousands = !thousands.empty() ? thousands : regional.decimal == "." ? "," : ".";
    setDateFormat(regional, localeText(locale, LOCALE_SSHORTDATE | flags), "d", "M", "y");
    return regional;
}

}  // namespace

std::optional<Regional> installedRegional(const std::string& territory) {
    std::wstring name = system::wideOf(territory);
    std::replace(name.begin(), name.end(), L'_', L'-');
    if (IsValidLocaleName(name.c_str()) == 0) return std::nullopt;
    return regionalFrom(name.c_str(), LOCALE_NOUSEROVERRIDE);
}

std::optional<std::string> environmentLocale() {
    return std::nullopt;
}

Regional personalRegional() {
    return regionalFrom(LOCALE_NAME_USER_DEFAULT, 0);
}

}  // namespace catalogador::services
