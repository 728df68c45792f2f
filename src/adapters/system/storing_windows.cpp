#include <windows.h>

#include <system_error>

#include "adapters/system/storing.h"
#include "adapters/system/wide_text.h"

namespace catalogador::system {

namespace {

[[noreturn]] void fail() {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

}  // namespace

void createLike(const std::string& path, const std::string& /*earlier*/) {
    // The rights of a file are those of its folder there.
    const HANDLE file = CreateFileW(wideOf(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) fail();
    CloseHandle(file);
}

void storeAs(const std::string& path, const std::string& target) {
    if (MoveFileExW(wideOf(path).c_str(), wideOf(target).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
        fail();
}

}  // namespace catalogador::system
