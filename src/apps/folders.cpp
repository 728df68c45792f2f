#include "apps/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>

namespace catalogador {

namespace {

/// A folder of the program's data: installed beside the program, or the one it was built with.
std::string installedFolder(const char* name, const char* source) {
    const auto installed =
        std::filesystem::path(programFolder()).parent_path() / "share" / "catalogador" / name;
    return std::filesystem::is_directory(installed) ? installed.string() : source;
}

}  // namespace

std::string programFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? "." : program.parent_path().string();
}

std::string languagesFolder() {
    return installedFolder("languages", CATALOGADOR_SOURCE_LANGUAGES);
}

std::string helpFolder() {
    return installedFolder("help", CATALOGADOR_SOURCE_HELP);
}

std::string systemUser() {
    const passwd* entry = getpwuid(getuid());
    return entry == nullptr ? "" : entry->pw_name;
}

}  // namespace catalogador
