#include "adapters/checks/finding.h"

#include <algorithm>

#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::string_view idPrefix = "CAT";
constexpr int idDigits = 3;

}  // namespace

std::string_view nameOf(Severity severity) {
    switch (severity) {
        case Severity::error:
            return "error";
        case Severity::warning:
            return "warning";
        default:
            return "note";
    }
}

const FindingKind& findingKind(int number) {
    const auto kinds = findingKinds();
    return *std::lower_bound(
        kinds.begin(), kinds.end(), number,
        [](const FindingKind& kind, int wanted) { return kind.number < wanted; });
}

std::string idOf(int number) {
    return std::string(idPrefix) + zeroPadded(number, idDigits);
}

std::optional<int> numberOf(std::string_view id) {
    for (const FindingKind& kind : findingKinds())
        if (idOf(kind.number) == id) return kind.number;
    return std::nullopt;
}

Finding& Findings::add(int number, Place place, std::string_view first, std::string_view second) {
    std::string message = replaceText(findingKind(number).message, "[p2]", second, Compare::binary);
    message = replaceText(message, "[p1]", first, Compare::binary);
    return findings_.emplace_back(Finding{number, std::move(place), std::move(message), {}});
}

}  // namespace catalogador::checks
