#include <langinfo.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <type_traits>

#include "adapters/services/installed_locale.h"

namespace catalogador::services {

namespace {

void setPosixDateFormat(Regional& regional, const std::string& format) {
    if (format == "%D") {
        regional.dateOrder = DateOrder::monthDayYear;
        return;
    }
    if (format == "%F") {
        regional.dateOrder = DateOrder::yearMonthDay;
        regional.dateSeparator = "-";
        return;
    }
    setDateFormat(regional, format, "de", "m", "yY");
}

}  // namespace

std::optional<std::string> environmentLocale() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

std::optional<Regional> installedRegional(const std::string& territory) {
    struct Free {
        void operator()(locale_t locale) const { freelocale(locale); }
    };
    using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, Free>;
    const Locale locale(newlocale(LC_ALL_MASK, (territory + ".UTF-8").c_str(), nullptr));
    if (!locale) return std::nullopt;
    const auto item = [&](nl_item which) {
        return std::string(nl_langinfo_l(which, locale.get()));
    };
    // Separators in another encoding would be no text here.
    if (item(CODESET) != "UTF-8") return std::nullopt;
    Regional regional;
    if (const std::string decimal = item(RADIXCHAR); !decimal.empty()) regional.decimal = decimal;
    const std::string thousands = item(THOUSEP);
    regional.thousands = !thousands.empty() ? thousands : regional.decimal == "." ? "," : ".";
    setPosixDateFormat(regional, item(D_FMT));
    return regional;
}

Regional personalRegional() {
    return {};
}

}  // namespace catalogador::services
