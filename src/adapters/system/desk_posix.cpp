#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "adapters/system/desk.h"
#include "adapters/system/paths.h"

namespace catalogador::system {

namespace {

/// Empty where the variable names no folder: a relative one would be a folder of whatever folder is
/// the current one.
std::filesystem::path environmentPath(const char* name) {
    const char* value = std::getenv(name);
    const std::filesystem::path path = value != nullptr ? value : "";
    return path.is_absolute() ? path : std::filesystem::path();
}

}  // namespace

std::string programFolder() {
    std::error_code failure;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? "" : pathText(program.parent_path());
}

std::int64_t processId() {
    return getpid();
}

std::string systemUser() {
    const passwd* entry = getpwuid(getuid());
    return entry == nullptr ? "" : entry->pw_name;
}

std::filesystem::path configurationFolder() {
    const std::filesystem::path folder = environmentPath("XDG_CONFIG_HOME");
    const std::filesystem::path home = userFolder();
    return !folder.empty() || home.empty() ? folder : home / ".config";
}

std::filesystem::path userFolder() {
    return environmentPath("HOME");
}

bool mayWriteTo(const std::filesystem::path& folder) {
    return access(folder.c_str(), W_OK) == 0;
}

std::tm localTime(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}

}  // namespace catalogador::system
