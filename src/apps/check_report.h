#pragma once
#include <iosfwd>
#include <vector>

#include "adapters/checks/checks.h"
#include "apps/options.h"

namespace catalogador {

/// How many findings of each severity were told, and how many were ignored.
struct FindingCounts {
    int views = 0;
    int errors = 0;
    int warnings = 0;
    int notes = 0;
    int ignored = 0;
};

/// Prints the findings that are not ignored in the format of the call, and then the counts.
FindingCounts reportFindings(std::ostream& out, const checks::CheckResult& result,
                             const CheckCall& call);

}  // namespace catalogador
