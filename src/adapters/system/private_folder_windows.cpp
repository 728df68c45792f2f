#include <windows.h>

#include <filesystem>
#include <random>
#include <system_error>

#include "adapters/system/paths.h"
#include "adapters/system/private_folder.h"
#include "adapters/system/wide_text.h"

namespace catalogador::system {

namespace {

constexpr const wchar_t* prefix = L".catalogador-";
constexpr const wchar_t* markName = L"in-use";

/// A file that nobody else can open, and that the system removes with the process.
HANDLE marked(const std::filesystem::path& folder) {
    return CreateFileW((folder / markName).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                       FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

void removeLeftBehind(const std::filesystem::path& parent) {
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(parent, ignored), end; entry != end;
         entry.increment(ignored)) {
        const DWORD attributes = GetFileAttributesW(entry->path().c_str());
        if (!entry->path().filename().wstring().starts_with(prefix) ||
            (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ||
            (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
            continue;
        const HANDLE mark = marked(entry->path());
        if (mark == INVALID_HANDLE_VALUE) continue;
        for (std::filesystem::directory_iterator file(entry->path(), ignored); file != end;
             file.increment(ignored))
            DeleteFileW(file->path().c_str());
        CloseHandle(mark);
        RemoveDirectoryW(entry->path().c_str());
    }
}

std::wstring randomName() {
    std::random_device random;
    return prefix + std::to_wstring(random());
}

}  // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : mark_(0) {
    const std::filesystem::path place = pathOf(parent);
    removeLeftBehind(place);
    constexpr int tries = 100;
    for (int n = 0; n < tries; ++n) {
        const std::filesystem::path folder = place / randomName();
        if (CreateDirectoryW(folder.c_str(), nullptr) == 0) {
            if (GetLastError() == ERROR_ALREADY_EXISTS) continue;
            break;
        }
        // Between its making and its mark another program may have taken it for left behind.
        const HANDLE mark = marked(folder);
        if (mark == INVALID_HANDLE_VALUE) continue;
        path_ = pathText(folder);
        mark_ = reinterpret_cast<std::intptr_t>(mark);
        return;
    }
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

PrivateFolder::~PrivateFolder() {
    const std::filesystem::path folder = pathOf(path_);
    std::error_code ignored;
    for (std::filesystem::directory_iterator file(folder, ignored), end; file != end;
         file.increment(ignored))
        DeleteFileW(file->path().c_str());
    CloseHandle(reinterpret_cast<HANDLE>(mark_));
    RemoveDirectoryW(folder.c_str());
}

}  // namespace catalogador::system
