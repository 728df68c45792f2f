#include <windows.h>

#include <array>

#include "adapters/system/open_file.h"
#include "adapters/system/wide_text.h"

namespace catalogador::system {

std::FILE* openFile(const std::string& path, const char* mode) {
    return _wfopen(wideOf(path).c_str(), wideOf(mode).c_str());
}

std::string narrowPath(const std::string& path) {
    std::array<wchar_t, MAX_PATH> name{};
    const DWORD length =
        GetShortPathNameW(wideOf(path).c_str(), name.data(), static_cast<DWORD>(name.size()));
    const std::wstring wide =
        length > 0 && length < name.size() ? std::wstring(name.data()) : wideOf(path);
    std::array<char, 3 * MAX_PATH> narrow{};
    WideCharToMultiByte(CP_ACP, 0, wide.c_str(), -1, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow.data();
}

}  // namespace catalogador::system
