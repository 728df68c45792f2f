#include "adapters/services/regional.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "adapters/services/installed_locale.h"
#include "runtime/error.h"

namespace catalogador::services {

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

std::optional<Regional> knownRegional(std::string_view territory) {
    const auto known = std::find_if(knownLocales.begin(), knownLocales.end(), [&](const auto& l) {
        return territory == l.prefix ||
               (territory.starts_with(l.prefix) && territory[l.prefix.size()] == '_');
    });
    if (known == knownLocales.end()) return std::nullopt;
    return Regional{known->decimal, known->thousands, known->order, known->dateSeparator};
}

}  // namespace

void setDateFormat(Regional& regional, const std::string& format, const char* day,
                   const char* month, const char* year) {
    const std::size_t dayAt = format.find_first_of(day);
    const std::size_t monthAt = format.find_first_of(month);
    const std::size_t yearAt = format.find_first_of(year);
    if (std::max({dayAt, monthAt, yearAt}) == std::string::npos) return;
    if (yearAt < monthAt)
        regional.dateOrder = yearMonthDay;
    else
        regional.dateOrder = dayAt < monthAt ? dayMonthYear : monthDayYear;
    const std::size_t mark = format.find_first_of("/.-", std::min({dayAt, monthAt, yearAt}));
    if (mark != std::string::npos) regional.dateSeparator = format.substr(mark, 1);
}

Regional regionalOf(const std::string& localeName) {
    const auto asked = localeName.empty() ? environmentLocale() : localeName;
    if (!asked) return personalRegional();
    const std::string& name = *asked;
    const std::string territory(territoryOf(name));
    if (territory == "C" || territory == "POSIX") return {};
    if (auto installed = installedRegional(territory)) return *installed;
    if (auto known = knownRegional(territory)) return *known;
    if (localeName.empty()) return {};
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The locale " + name + " is not known; give one like es_AR or en_US");
}

}  // namespace catalogador::services
