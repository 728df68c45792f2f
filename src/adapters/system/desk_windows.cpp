#include <windows.h>
// windows.h comes first: the others build on it.
#include <lmcons.h>
#include <shlobj.h>

#include <array>
#include <vector>

#include "adapters/system/desk.h"
#include "adapters/system/wide_text.h"

namespace catalogador::system {

namespace {

std::filesystem::path knownFolder(int which) {
    std::array<wchar_t, MAX_PATH> path{};
    if (FAILED(SHGetFolderPathW(nullptr, which, nullptr, SHGFP_TYPE_CURRENT, path.data())))
        return {};
    return path.data();
}

/// The program or library that this code is part of.
HMODULE ownModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ownModule), &module);
    return module;
}

}  // namespace

std::string programFolder() {
    std::vector<wchar_t> path(MAX_PATH);
    DWORD length = 0;
    while ((length = GetModuleFileNameW(ownModule(), path.data(),
                                        static_cast<DWORD>(path.size()))) == path.size())
        path.resize(2 * path.size());
    const std::wstring file(path.data(), length);
    return utf8Of(file.substr(0, file.find_last_of(L"\\/")));
}

std::int64_t processId() {
    return GetCurrentProcessId();
}

std::string systemUser() {
    std::array<wchar_t, UNLEN + 1> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetUserNameW(name.data(), &size) != 0 ? utf8Of(name.data()) : std::string();
}

std::filesystem::path configurationFolder() {
    return knownFolder(CSIDL_APPDATA);
}

std::filesystem::path userFolder() {
    return knownFolder(CSIDL_PERSONAL);
}

bool mayWriteTo(const std::filesystem::path& folder) {
    // The system decides by more than the folder's own list of rights, so it is tried.
    std::array<wchar_t, MAX_PATH> file{};
    if (GetTempFileNameW(folder.c_str(), L"cat", 0, file.data()) == 0) return false;
    DeleteFileW(file.data());
    return true;
}

std::tm localTime(std::time_t time) {
    std::tm local{};
    localtime_s(&local, &time);
    return local;
}

}  // namespace catalogador::system
