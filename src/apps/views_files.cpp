#include "apps/views_files.h"

#include <ostream>

#include "adapters/views/applying.h"
#include "adapters/views/proposed.h"
#include "apps/check_options.h"
#include "apps/check_report.h"

namespace catalogador {

namespace {

checks::SchemaFacts schemaOf(rdoConnection& connection) {
    return checks::SchemaFacts::of(checks::Database(connection));
}

/// The errors of the views that the files describe, as these would be.
checks::CheckResult errorsIn(const Options& options, rdoConnection& connection,
                             const std::vector<views::ViewFile>& files,
                             const views::ChangeOptions& wanted) {
    const checks::Database database(connection);
    checks::Metadata metadata = checks::readMetadata(database);
    const auto stored = views::readStored(connection, metadata.schema);
    metadata = views::proposed(std::move(metadata),
                               views::changesOf(stored, viewsOf(files), wanted), stored, wanted);
    const script::WindowlessSurface measure;
    checks::CheckOptions checked = checkOptionsOf(options, measure);
    for (const auto& file : files) checked.views.push_back(file.view.number());
    auto result = checks::checkMetadata(database, metadata, checked);
    std::erase_if(result.findings, [](const checks::Finding& finding) {
        return finding.kind().severity != checks::Severity::error;
    });
    return result;
}

CheckCall silencedBy(const std::vector<views::ViewFile>& files) {
    CheckCall call;
    for (const auto& file : files)
        for (const int number : file.view.ignored)
            call.ignored.push_back({number, static_cast<std::int16_t>(file.view.number())});
    return call;
}

}  // namespace

std::vector<views::View> viewsOf(const std::vector<views::ViewFile>& files) {
    std::vector<views::View> all;
    for (const auto& file : files) all.push_back(file.view);
    return all;
}

views::StoredViews storedIn(rdoConnection& connection) {
    return views::readStored(connection, schemaOf(connection));
}

bool applyFiles(std::ostream& out, rdoConnection& connection,
                const std::vector<views::ViewFile>& files, const Options& options) {
    const ViewsCall& call = options.views;
    const views::ChangeOptions wanted{call.widths, call.deleteMissing};
    const auto errors = errorsIn(options, connection, files, wanted);
    if (reportFindings(out, errors, silencedBy(files)).errors > 0) {
        out << "nothing is changed: mend the errors first\n";
        return false;
    }
    const checks::SchemaFacts schema = schemaOf(connection);
    std::vector<std::string> lines;
    inTransaction(*connection.session(), [&] {
        const auto stored = views::readStored(connection, schema);
        const auto changes = views::changesOf(stored, viewsOf(files), wanted);
        lines = views::linesOf(changes, stored, wanted);
        if (!call.dryRun) views::applyChanges(connection, changes, stored, wanted);
    });
    for (const std::string& line : lines) out << line << '\n';
    out << (call.dryRun ? "would be changed: " : "changed: ") << lines.size() << '\n';
    return true;
}

}  // namespace catalogador
