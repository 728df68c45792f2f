#include <windows.h>

#include <array>
#include <filesystem>
#include <system_error>

#include "adapters/desk/wide_text.h"
#include "adapters/files/replaced_file.h"
#include "runtime/error.h"
#include "runtime/paths.h"

namespace catalogador {

namespace {

constexpr std::int32_t pathAccessError = 75;

std::string lastError() {
    return std::system_category().message(static_cast<int>(GetLastError()));
}

}  // namespace

ReplacedFile::ReplacedFile(const std::string& target) : target_(target) {
    const std::filesystem::path path = pathOf(target);
    folder_ = path.has_parent_path() ? pathText(path.parent_path()) : ".";
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) fail("it is a folder");
    std::array<wchar_t, MAX_PATH> name{};
    if (GetTempFileNameW(wideOf(folder_).c_str(), L"cat", 0, name.data()) == 0) fail(lastError());
    path_ = utf8Of(name.data());
}

ReplacedFile::~ReplacedFile() {
    if (!committed_) DeleteFileW(wideOf(path_).c_str());
}

void ReplacedFile::commit() {
    if (MoveFileExW(wideOf(path_).c_str(), wideOf(target_).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
        fail(lastError());
    committed_ = true;
}

void ReplacedFile::fail(const std::string& reason) const {
    throw RuntimeError(pathAccessError, "The file " + target_ + " could not be written: " + reason +
                                            ". Choose another folder or make room, and try "
                                            "again; what was there before is as it was");
}

}  // namespace catalogador
