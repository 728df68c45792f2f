#include "apps/folders.h"

#include <pwd.h>
#include <unistd.h>

#include <filesystem>

namespace catalogador {

std::string programFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? "." : program.parent_path().string();
}

std::string languagesFolder() {
    const auto installed = std::filesystem::path(programFolder()).parent_path() / "share" /
                           "catalogador" / "languages";
    return std::filesystem::is_directory(installed) ? installed.string()
                                                    : CATALOGADOR_SOURCE_LANGUAGES;
}

std::string systemUser() {
    const passwd* entry = getpwuid(getuid());
    return entry == nullptr ? "" : entry->pw_name;
}

}  // namespace catalogador
