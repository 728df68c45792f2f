#include <windows.h>
// windows.h comes first: the other builds on it.
#include <shellapi.h>

#include <filesystem>
#include <system_error>

#include "adapters/services/opening.h"
#include "adapters/system/paths.h"
#include "adapters/system/wide_text.h"
#include "runtime/error.h"

namespace catalogador::services {

namespace {

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The file " + path + " cannot be opened: " + reason);
}

}  // namespace

void openWithDesktop(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(pathOf(path), error)) fail(path, "there is no such file");
    const std::wstring file = std::filesystem::absolute(pathOf(path), error).wstring();
    SHELLEXECUTEINFOW open{};
    open.cbSize = sizeof open;
    open.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    open.lpVerb = L"open";
    open.lpFile = file.c_str();
    open.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&open) == 0)
        fail(path, std::system_category().message(static_cast<int>(GetLastError())));
}

}  // namespace catalogador::services
