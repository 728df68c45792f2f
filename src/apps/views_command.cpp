#include <algorithm>
#include <fstream>
#include <iostream>

#include "adapters/system/paths.h"
#include "adapters/system/replaced_file.h"
#include "adapters/views/changes.h"
#include "adapters/views/file_text.h"
#include "apps/commands.h"
#include "apps/connections.h"
#include "apps/views_files.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

using views::View;
using views::ViewFile;

std::string counted(std::size_t number, const std::string& one) {
    return decimalText(static_cast<std::int64_t>(number)) + " " + one + (number == 1 ? "" : "s");
}

void writeFile(const std::filesystem::path& path, const std::string& text) {
    system::ReplacedFile draft(pathText(path));
    std::ofstream stream(pathOf(draft.path()), std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) draft.fail("it could not be written");
    draft.commit();
}

/// False when the file says all of this already.
bool writeView(View view, const std::filesystem::path& folder, const std::vector<ViewFile>& files) {
    const auto known = std::find_if(files.begin(), files.end(), [&](const ViewFile& file) {
        return file.view.number() == view.number();
    });
    if (known == files.end()) {
        writeFile(folder / ("view-" + decimalText(view.number()) + ".toml"), views::fileText(view));
        return true;
    }
    if (known->view.describesTheSameAs(view)) return false;
    // What only a file knows.
    view.ignored = known->view.ignored;
    view.test = known->view.test;
    writeFile(known->path,
              views::withComments(views::fileText(view), views::contentOf(known->path)));
    return true;
}

int exportViews(const Options& options) {
    const ViewsCall& call = options.views;
    const auto connection = openDatabase(options);
    const auto stored = storedIn(*connection);
    const std::filesystem::path folder = pathOf(call.folder);
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    const auto files = views::readFolder(folder);
    for (const std::int16_t asked : call.views)
        if (stored.view(asked) == nullptr)
            throw RuntimeError(error_number::invalidProcedureCall,
                               "there is no view " + decimalText(asked) + " in the database");
    std::size_t written = 0;
    std::size_t unchanged = 0;
    for (const auto& [number, view] : stored.views) {
        const bool wanted = call.views.empty() || std::find(call.views.begin(), call.views.end(),
                                                            number) != call.views.end();
        if (wanted) ++(writeView(view, folder, files) ? written : unchanged);
    }
    std::cout << counted(written, "file") << " written, " << unchanged << " unchanged\n";
    return exitPlayed;
}

int showDifferences(const Options& options) {
    const auto files = views::readFolder(pathOf(options.views.folder));
    const auto connection = openDatabase(options);
    const auto stored = storedIn(*connection);
    const views::ChangeOptions all{.widths = true, .deleteMissing = false};
    const views::Changes changes = views::changesOf(stored, viewsOf(files), all);
    for (const std::string& line : views::linesOf(changes, stored, all)) std::cout << line << '\n';
    for (const std::int64_t number : changes.missing)
        std::cout << "view " << number << ": no file describes it\n";
    return changes.empty() && changes.missing.empty() ? exitPlayed : exitFindings;
}

int applyViews(const Options& options) {
    const auto files = views::readFolder(pathOf(options.views.folder));
    const auto connection = openDatabase(options);
    return applyFiles(std::cout, *connection, files, options) ? exitPlayed : exitFindings;
}

}  // namespace

int viewsCommand(const Options& options) {
    switch (options.views.action) {
        case ViewsCall::Action::write:
            return exportViews(options);
        case ViewsCall::Action::apply:
            return applyViews(options);
        case ViewsCall::Action::test:
            return testViews(options);
        default:
            return showDifferences(options);
    }
}

}  // namespace catalogador
