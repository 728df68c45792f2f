#include "adapters/services/regional.h"

#include <langinfo.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>

#include "runtime/error.h"

namespace catalogador {

namespace {

using enum DateOrder;

struct KnownLocale {
    std::string_view prefix;
    const char* decimal;
    const char* thousands;
    DateOrder order;
    const char* dateSeparator;
};

/// What a bare machine lacks. The first prefix that fits counts, so countries that write otherwise
/// than most of their language stand before it.
constexpr std::array<KnownLocale, 27> knownLocales{{
    {"es_DO", ".", ",", dayMonthYear, "/"},      {"es_GT", ".", ",", dayMonthYear, "/"},
    {"es_HN", ".", ",", dayMonthYear, "/"},      {"es_MX", ".", ",", dayMonthYear, "/"},
    {"es_NI", ".", ",", dayMonthYear, "/"},      {"es_PA", ".", ",", monthDayYear, "/"},
    {"es_PE", ".", ",", dayMonthYear, "/"},      {"es_PR", ".", ",", monthDayYear, "/"},
    {"es_SV", ".", ",", dayMonthYear, "/"},      {"es_US", ".", ",", monthDayYear, "/"},
    {"es", ",", ".", dayMonthYear, "/"},         {"pt", ",", ".", dayMonthYear, "/"},
    {"de_CH", ".", "’", dayMonthYear, "."},      {"de_LI", ".", "’", dayMonthYear, "."},
    {"de_AT", ",", ".", dayMonthYear, "."},      {"de", ",", ".", dayMonthYear, "."},
    {"fr_CA", ",", "\u00A0", yearMonthDay, "-"}, {"fr_CH", ".", "’", dayMonthYear, "."},
    {"fr", ",", "\u202F", dayMonthYear, "/"},    {"en_US", ".", ",", monthDayYear, "/"},
    {"en_PH", ".", ",", monthDayYear, "/"},      {"en_CA", ".", ",", yearMonthDay, "-"},
    {"en_ZA", ",", "\u00A0", yearMonthDay, "/"}, {"en_DK", ",", ".", yearMonthDay, "-"},
    {"en", ".", ",", dayMonthYear, "/"},         {"it_CH", ".", "’", dayMonthYear, "."},
    {"it", ",", ".", dayMonthYear, "/"},
}};

/// "es_AR" of "es_AR.UTF-8@euro".
std::string_view territoryOf(std::string_view name) {
    return name.substr(0, name.find_first_of(".@"));
}

std::string environmentLocale() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

void setDateFormat(Regional& regional, std::string_view format) {
    if (format == "%D") {
        regional.dateOrder = monthDayYear;
        return;
    }
    if (format == "%F") {
        regional.dateOrder = yearMonthDay;
        regional.dateSeparator = "-";
        return;
    }
    const std::size_t day = format.find_first_of("de");
    const std::size_t month = format.find('m');
    const std::size_t year = format.find_first_of("yY");
    if (std::max({day, month, year}) == std::string_view::npos) return;
    if (year < month)
        regional.dateOrder = yearMonthDay;
    else
        regional.dateOrder = day < month ? dayMonthYear : monthDayYear;
    const std::size_t mark = format.find_first_of("/.-", std::min({day, month, year}));
    if (mark != std::string_view::npos) regional.dateSeparator = format.substr(mark, 1);
}

std::optional<Regional> installedRegional(const std::string& name) {
    struct Free {
        void operator()(locale_t locale) const { freelocale(locale); }
    };
    using Locale = std::unique_ptr<std::remove_pointer_t<locale_t>, Free>;
    const Locale locale(newlocale(LC_ALL_MASK, name.c_str(), nullptr));
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
    setDateFormat(regional, item(D_FMT));
    return regional;
}

std::optional<Regional> knownRegional(std::string_view territory) {
    const auto known = std::find_if(knownLocales.begin(), knownLocales.end(), [&](const auto& l) {
        return territory == l.prefix ||
               (territory.starts_with(l.prefix) && territory[l.prefix.size()] == '_');
    });
    if (known == knownLocales.end()) return std::nullopt;
    return Regional{known->decimal, known->thousands, known->order, known->dateSeparator};
}

}  // namespace

Regional regionalOf(const std::string& localeName) {
    const std::string name = localeName.empty() ? environmentLocale() : localeName;
    const std::string territory(territoryOf(name));
    if (territory == "C" || territory == "POSIX") return {};
    if (auto installed = installedRegional(territory + ".UTF-8")) return *installed;
    if (auto known = knownRegional(territory)) return *known;
    if (localeName.empty()) return {};
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The locale " + name + " is not known; give one like es_AR or en_US");
}

}  // namespace catalogador
