#include <array>

#include "hosted.h"

namespace catalogador::test {
namespace {

constexpr const wchar_t* classesKey = L"Software\\Classes";
constexpr const wchar_t* classKey =
    L"Software\\Classes\\CLSID\\{592A528B-62D8-484D-BC6F-2ED557844700}\\InprocServer32";

HKEY opened(HKEY root, const wchar_t* name, REGSAM access) {
    HKEY key = nullptr;
    return RegOpenKeyExW(root, name, 0, access, &key) == ERROR_SUCCESS ? key : nullptr;
}

/// Every key and value below a key.
std::vector<std::wstring> contents(HKEY key, const std::wstring& path = L"") {
    std::vector<std::wstring> all;
    std::array<wchar_t, 16384> name{};
    std::array<BYTE, 65536> data{};
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        auto size = static_cast<DWORD>(data.size());
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, nullptr, data.data(), &size) !=
            ERROR_SUCCESS)
            break;
        all.push_back(path + L"\n" + name.data() + L"=" +
                      std::wstring(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size)));
    }
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        const std::wstring below = path + L"\\" + name.data();
        all.push_back(below);
        const HKEY child = opened(key, name.data(), KEY_READ);
        const auto more = contents(child, below);
        all.insert(all.end(), more.begin(), more.end());
        RegCloseKey(child);
    }
    return all;
}

std::vector<std::wstring> classesOf(HKEY root) {
    const HKEY key = opened(root, classesKey, KEY_READ);
    if (key == nullptr) return {};
    auto all = contents(key);
    RegCloseKey(key);
    return all;
}

/// While it lives, nobody may write into the classes of the whole computer.
class ComputersClassesClosed {
  public:
    ComputersClassesClosed() : key_(opened(HKEY_LOCAL_MACHINE, classesKey, WRITE_DAC | KEY_READ)) {
        everybodyMay(KEY_READ | WRITE_DAC);
    }
    ~ComputersClassesClosed() {
        everybodyMay(KEY_ALL_ACCESS);
        RegCloseKey(key_);
    }
    ComputersClassesClosed(const ComputersClassesClosed&) = delete;
    ComputersClassesClosed& operator=(const ComputersClassesClosed&) = delete;

  private:
    void everybodyMay(DWORD access) {
        std::array<BYTE, SECURITY_MAX_SID_SIZE> everybody{};
        auto size = static_cast<DWORD>(everybody.size());
        CreateWellKnownSid(WinWorldSid, nullptr, everybody.data(), &size);
        std::array<DWORD, 64> space{};
        auto* list = reinterpret_cast<ACL*>(space.data());
        InitializeAcl(list, sizeof space, ACL_REVISION);
        AddAccessAllowedAce(list, ACL_REVISION, access, everybody.data());
        SECURITY_DESCRIPTOR description{};
        InitializeSecurityDescriptor(&description, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&description, TRUE, list, FALSE);
        EXPECT_EQ(RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, &description), ERROR_SUCCESS);
    }

    HKEY key_;
};

HRESULT call(const char* name) {
    static const HMODULE library = LoadLibraryW(L"vemCatalogador.dll");
    return reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, name)))();
}

bool isThere(HKEY root) {
    const HKEY key = opened(root, classKey, KEY_READ);
    if (key != nullptr) RegCloseKey(key);
    return key != nullptr;
}

TEST(Registration, IsForThePersonAloneWhereTheComputersMayNotBeWritten) {
    const Apartment apartment;
    ASSERT_EQ(call("DllUnregisterServer"), S_OK);
    const auto computerBefore = classesOf(HKEY_LOCAL_MACHINE);
    const auto personBefore = classesOf(HKEY_CURRENT_USER);
    EXPECT_FALSE(computerBefore.empty());
    {
        const ComputersClassesClosed closed;
        HKEY writable = opened(HKEY_LOCAL_MACHINE, classesKey, KEY_WRITE);
        ASSERT_EQ(writable, nullptr) << "this system lets everybody write everywhere";
        EXPECT_EQ(call("DllRegisterServer"), S_OK);
        EXPECT_FALSE(isThere(HKEY_LOCAL_MACHINE));
        EXPECT_TRUE(isThere(HKEY_CURRENT_USER));
        EXPECT_EQ(call("DllUnregisterServer"), S_OK);
        EXPECT_FALSE(isThere(HKEY_CURRENT_USER));
    }
    EXPECT_EQ(classesOf(HKEY_CURRENT_USER), personBefore);
    EXPECT_EQ(classesOf(HKEY_LOCAL_MACHINE), computerBefore);
    EXPECT_EQ(call("DllRegisterServer"), S_OK);
    EXPECT_TRUE(isThere(HKEY_LOCAL_MACHINE));
    EXPECT_FALSE(isThere(HKEY_CURRENT_USER));
}

}  // namespace
}  // namespace catalogador::test
