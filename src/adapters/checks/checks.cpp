#include "adapters/checks/checks.h"

#include <algorithm>
#include <tuple>

#include "adapters/checks/context.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

void checkOneView(const Context& context, const ViewRow& view) {
    checkView(context, view);
    checkAccess(context, view);
    checkColumns(context, view, checkListing(context, view));
    checkFields(context, view);
    checkCombos(context, view);
    checkSequence(context, view);
    checkDuplicateRule(context, view);
}

bool isWanted(const CheckOptions& options, std::int64_t view) {
    return options.views.empty() ||
           std::find(options.views.begin(), options.views.end(), view) != options.views.end();
}

/// Of what is found beside views, only the tables concern somebody who asks for some views.
bool concerns(const CheckOptions& options, const Finding& finding) {
    if (finding.place.view) return isWanted(options, *finding.place.view);
    return options.views.empty() || finding.number <= kind::optionalTableMissing;
}

auto orderOf(const Finding& finding) {
    const Place& place = finding.place;
    return std::tie(place.view, place.table, place.column, place.key, finding.number);
}

}  // namespace

CheckResult checkMetadata(rdoConnection& connection, const CheckOptions& options) {
    const Database database(connection);
    return checkMetadata(database, readMetadata(database), options);
}

CheckResult checkMetadata(const Database& database, const Metadata& metadata,
                          const CheckOptions& options) {
    Findings findings;
    const Context context{database, metadata, options, findings};
    CheckResult result;
    checkSchema(context);
    for (const auto& [number, view] : metadata.views) {
        if (!isWanted(options, number)) continue;
        checkOneView(context, view);
        ++result.views;
    }
    for (const std::int64_t asked : options.views)
        if (!metadata.views.contains(asked))
            findings.add(kind::viewMissing, {asked, "Catalogador", {}, {}}, decimalText(asked));
    checkFieldsOfNoView(context);
    checkRules(context);
    result.findings = findings.take();
    std::erase_if(result.findings,
                  [&](const Finding& finding) { return !concerns(options, finding); });
    std::stable_sort(
        result.findings.begin(), result.findings.end(),
        [](const Finding& left, const Finding& right) { return orderOf(left) < orderOf(right); });
    return result;
}

}  // namespace catalogador::checks
