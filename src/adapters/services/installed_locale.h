#pragma once
#include <optional>
#include <string>

#include "runtime/regional.h"

namespace catalogador::services {

/// What the operating system has about a locale with a name like "es_AR".
std::optional<Regional> installedRegional(const std::string& territory);

/// The name of the locale that the environment asks for, "C" when it asks for none; no value where
/// the person's own settings say more than a name.
std::optional<std::string> environmentLocale();

/// The separators and the order of dates that this person works with, where the operating system
/// keeps such settings.
Regional personalRegional();

/// Takes order and separator of the parts from a short date's format. The parts begin with one of
/// the letters in `day`, `month` and `year`.
void setDateFormat(Regional& regional, const std::string& format, const char* day,
                   const char* month, const char* year);

}  // namespace catalogador::services
