#include "adapters/desktop/folders.h"

#include <filesystem>

#include "adapters/system/desk.h"
#include "adapters/system/paths.h"

namespace catalogador::desktop {

namespace {

/// A folder of the program's data: installed beside the program, or the one it was built with.
std::string installedFolder(const char* name, [[maybe_unused]] const char* source) {
    const auto program = pathOf(system::programFolder());
#ifdef _WIN32
    return pathText(program / name);
#else
    if (program.empty()) return source;
    const auto installed = program.parent_path() / "share" / "catalogador" / name;
    return std::filesystem::is_directory(installed) ? pathText(installed) : source;
#endif
}

}  // namespace

std::string languagesFolder() {
    return installedFolder("languages", CATALOGADOR_SOURCE_LANGUAGES);
}

std::string helpFolder() {
    return installedFolder("help", CATALOGADOR_SOURCE_HELP);
}

}  // namespace catalogador::desktop
