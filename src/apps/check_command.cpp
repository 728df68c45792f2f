#include <iostream>

#include "adapters/desktop/folders.h"
#include "adapters/help/help_pages.h"
#include "apps/check_options.h"
#include "apps/check_report.h"
#include "apps/commands.h"
#include "apps/connections.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

/// nullopt where the program has no help beside it.
std::optional<std::set<std::int64_t>> helpPages() {
    try {
        const help::HelpPages pages(desktop::helpFolder());
        std::set<std::int64_t> ids;
        for (const auto& [id, page] : pages.ids()) ids.insert(id);
        return ids;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace

checks::CheckOptions checkOptionsOf(const Options& options,
                                    const script::WindowlessSurface& measure) {
    checks::CheckOptions wanted;
    wanted.views.assign(options.check.views.begin(), options.check.views.end());
    wanted.company = options.company;
    wanted.helpPages = helpPages();
    wanted.textWidth = [&measure](std::string_view text) { return measure.textWidth(text); };
    return wanted;
}

int checkCommand(const Options& options) {
    const CheckCall& call = options.check;
    const auto connection = openDatabase(options);
    const script::WindowlessSurface measure;
    const checks::CheckOptions wanted = checkOptionsOf(options, measure);
    const FindingCounts counts =
        reportFindings(std::cout, checks::checkMetadata(*connection, wanted), call);
    const bool failed = counts.errors > 0 || (call.strict && counts.warnings > 0);
    return failed ? exitFindings : exitPlayed;
}

}  // namespace catalogador
