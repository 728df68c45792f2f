#pragma once
#include <string>

#include "runtime/regional.h"

namespace catalogador::services {

/// How numbers and dates are written in a locale ("es_AR", "en_US.UTF-8"), without changing the
/// locale of the process; "" stands for the environment's. "C" and "POSIX" say nothing about the
/// user and give the defaults of Regional. A locale that is not installed is known by its language
/// and country where these are common; another name raises RuntimeError (invalidProcedureCall),
/// but an unknown locale of the environment gives the defaults.
Regional regionalOf(const std::string& localeName);

}  // namespace catalogador::services
