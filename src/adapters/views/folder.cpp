#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "adapters/system/paths.h"
#include "adapters/views/file_reader.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw RuntimeError(error_number::invalidProcedureCall, text);
}

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    std::error_code failed;
    for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed))
        if (entry->path().extension() == ".toml") files.push_back(entry->path());
    if (failed)
        refuse("cannot read the folder " + pathText(folder) +
               "; name the folder of the view files");
    std::sort(files.begin(), files.end());
    return files;
}

/// What two files must say alike, because the database keeps it once for both.
struct Shared {
    const char* section;
    const char* by;
    std::string (View::*key)() const;
    std::vector<Row> View::*rows;
};

void requireAgreement(const std::vector<ViewFile>& files, std::vector<std::string>& problems) {
    constexpr Shared kinds[] = {{"[[rules]]", "name", &View::name, &View::rules},
                                {"[[rights]]", "option", &View::option, &View::rights}};
    for (const Shared& kind : kinds) {
        std::map<std::string, const ViewFile*> first;
        for (const ViewFile& file : files) {
            const std::string key = (file.view.*kind.key)();
            if (key.empty()) continue;
            const auto [known, added] = first.try_emplace(key, &file);
            if (!added && file.view.*kind.rows != known->second->view.*kind.rows)
                problems.push_back(pathText(file.path) + ":1: " + kind.section +
                                   " differs from that of " + pathText(known->second->path) +
                                   ", whose view has the same " + kind.by +
                                   "; write the same in both");
        }
    }
}

}  // namespace

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::stringstream content;
    content << stream.rdbuf();
    if (!stream) refuse("cannot read the file " + pathText(file));
    return content.str();
}

std::vector<ViewFile> readFolder(const std::filesystem::path& folder) {
    std::vector<ViewFile> files;
    std::vector<std::string> problems;
    for (const auto& path : filesOf(folder)) {
        std::vector<Problem> found;
        auto view = readView(contentOf(path), found);
        for (const Problem& problem : found)
            problems.push_back(pathText(path) + ":" +
                               decimalText(static_cast<std::int64_t>(problem.line)) + ": " +
                               problem.text);
        if (!view) continue;
        const auto twin = std::find_if(files.begin(), files.end(), [&](const ViewFile& other) {
            return other.view.number() == view->number();
        });
        if (twin != files.end())
            problems.push_back(pathText(path) + ":1: view " + decimalText(view->number()) +
                               " is described by " + pathText(twin->path) +
                               " too; keep one of the two files");
        else
            files.push_back({path, std::move(*view)});
    }
    requireAgreement(files, problems);
    if (!problems.empty()) {
        std::string text;
        for (const std::string& problem : problems) text += (text.empty() ? "" : "\n") + problem;
        refuse(text);
    }
    std::sort(files.begin(), files.end(), [](const ViewFile& left, const ViewFile& right) {
        return left.view.number() < right.view.number();
    });
    return files;
}

}  // namespace catalogador::views
