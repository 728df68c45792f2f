#include "com/automation/registration.h"

#include <array>
#include <string>

#include "com/automation/com_ptr.h"

namespace catalogador::com {

namespace {

constexpr const wchar_t* classesKey = L"Software\\Classes";

class Key {
  public:
    Key() = default;
    ~Key() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    [[nodiscard]] HKEY get() const { return key_; }
    HKEY* put() { return &key_; }

  private:
    HKEY key_ = nullptr;
};

std::wstring textOfId(const GUID& id) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring ownFile() {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(&ownFile), &module);
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(2 * path.size());
    path.resize(length);
    return path;
}

/// Writes values below a key until one fails.
class Writer {
  public:
    explicit Writer(HKEY root) : root_(root) {}

    void set(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
        if (status_ != ERROR_SUCCESS) return;
        Key opened;
        status_ = RegCreateKeyExW(root_, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                                  opened.put(), nullptr);
        if (status_ != ERROR_SUCCESS) return;
        status_ = RegSetValueExW(opened.get(), name, 0, REG_SZ,
                                 reinterpret_cast<const BYTE*>(value.c_str()),
                                 static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    }
    [[nodiscard]] LSTATUS status() const { return status_; }

  private:
    HKEY root_;
    LSTATUS status_ = ERROR_SUCCESS;
};

void writeClass(Writer& writer, const LibraryClass& made, const LibraryTypes& types) {
    const std::wstring id = textOfId(made.id);
    const std::wstring key = L"CLSID\\" + id;
    writer.set(made.progId, nullptr, made.description);
    writer.set(std::wstring(made.progId) + L"\\CLSID", nullptr, id);
    writer.set(key, nullptr, made.description);
    writer.set(key + L"\\InprocServer32", nullptr, ownFile());
    writer.set(key + L"\\InprocServer32", L"ThreadingModel", made.threading);
    writer.set(key + L"\\ProgID", nullptr, made.progId);
    writer.set(key + L"\\Programmable", nullptr, L"");
    if (types.major == 0) return;
    writer.set(key + L"\\TypeLib", nullptr, textOfId(types.id));
    writer.set(key + L"\\Version", nullptr,
               std::to_wstring(types.major) + L"." + std::to_wstring(types.minor));
}

/// A name that another library has taken over since is that library's.
bool isOurs(HKEY root, const LibraryClass& made) {
    std::array<wchar_t, 64> id{};
    DWORD size = sizeof id;
    const std::wstring key = std::wstring(made.progId) + L"\\CLSID";
    return RegGetValueW(root, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, id.data(), &size) ==
               ERROR_SUCCESS &&
           textOfId(made.id) == id.data();
}

using RegisterTypes = HRESULT(WINAPI*)(ITypeLib*, OLECHAR*, OLECHAR*);
using UnregisterTypes = HRESULT(WINAPI*)(REFGUID, WORD, WORD, LCID, SYSKIND);

template <class Function>
Function automationCall(const char* name) {
    const HMODULE library = GetModuleHandleW(L"oleaut32.dll");
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

HRESULT registerTypes(const LibraryTypes& types, bool forUser) {
    if (types.major == 0) return S_OK;
    std::wstring file = ownFile();
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(file.c_str(), REGKIND_NONE, library.put());
    if (FAILED(loaded)) return loaded;
    if (!forUser) return RegisterTypeLib(library.get(), file.data(), nullptr);
    const auto registerForUser = automationCall<RegisterTypes>("RegisterTypeLibForUser");
    return registerForUser == nullptr ? E_NOTIMPL
                                      : registerForUser(library.get(), file.data(), nullptr);
}

void unregisterTypes(const LibraryTypes& types, bool forUser) {
    if (types.major == 0) return;
    constexpr SYSKIND system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    if (!forUser) {
        UnRegisterTypeLib(types.id, types.major, types.minor, types.locale, system);
    } else if (const auto unregister =
                   automationCall<UnregisterTypes>("UnRegisterTypeLibForUser")) {
        unregister(types.id, types.major, types.minor, types.locale, system);
    }
}

/// A person's classes may have had none of these keys before.
void removeEmptyKeys(HKEY root) {
    for (const wchar_t* name : {L"CLSID", L"Interface", L"TypeLib"}) {
        bool empty = false;
        {
            Key key;
            DWORD keys = 0;
            DWORD values = 0;
            empty =
                RegOpenKeyExW(root, name, 0, KEY_READ, key.put()) == ERROR_SUCCESS &&
                RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                 &values, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
                keys == 0 && values == 0;
        }
        if (empty) RegDeleteKeyW(root, name);
    }
}

HRESULT registerUnder(HKEY root, bool forUser, const std::vector<LibraryClass>& classes,
                      const LibraryTypes& types) {
    Key key;
    LSTATUS status = RegCreateKeyExW(root, classesKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                                     key.put(), nullptr);
    if (status == ERROR_SUCCESS) status = writeClasses(key.get(), classes, types);
    HRESULT result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
    if (SUCCEEDED(result)) result = registerTypes(types, forUser);
    if (FAILED(result) && key.get() != nullptr) {
        unregisterTypes(types, forUser);
        removeClasses(key.get(), classes);
    }
    return result;
}

}  // namespace

LSTATUS writeClasses(HKEY root, const std::vector<LibraryClass>& classes,
                     const LibraryTypes& types) {
    Writer writer(root);
    for (const LibraryClass& made : classes) writeClass(writer, made, types);
    return writer.status();
}

LSTATUS removeClasses(HKEY root, const std::vector<LibraryClass>& classes) {
    LSTATUS status = ERROR_SUCCESS;
    const auto remove = [&](const std::wstring& key) {
        const LSTATUS removed = RegDeleteTreeW(root, key.c_str());
        if (removed != ERROR_SUCCESS && removed != ERROR_FILE_NOT_FOUND) status = removed;
    };
    for (const LibraryClass& made : classes) {
        if (isOurs(root, made)) remove(made.progId);
        remove(L"CLSID\\" + textOfId(made.id));
    }
    return status;
}

HRESULT registerLibrary(const std::vector<LibraryClass>& classes, const LibraryTypes& types) {
    const HRESULT result = registerUnder(HKEY_LOCAL_MACHINE, false, classes, types);
    const bool notAllowed = result == E_ACCESSDENIED || result == TYPE_E_REGISTRYACCESS;
    return notAllowed ? registerUnder(HKEY_CURRENT_USER, true, classes, types) : result;
}

HRESULT unregisterLibrary(const std::vector<LibraryClass>& classes, const LibraryTypes& types) {
    HRESULT result = S_OK;
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        Key key;
        const bool forUser = root == HKEY_CURRENT_USER;
        const LSTATUS opened = RegOpenKeyExW(root, classesKey, 0, KEY_READ | KEY_WRITE, key.put());
        // Who may not write for all has registered nothing there.
        if (opened == ERROR_ACCESS_DENIED || opened == ERROR_FILE_NOT_FOUND) continue;
        if (opened != ERROR_SUCCESS) {
            result = HRESULT_FROM_WIN32(static_cast<DWORD>(opened));
            continue;
        }
        unregisterTypes(types, forUser);
        const LSTATUS status = removeClasses(key.get(), classes);
        if (status != ERROR_SUCCESS) result = HRESULT_FROM_WIN32(static_cast<DWORD>(status));
        if (forUser) removeEmptyKeys(key.get());
    }
    return result;
}

}  // namespace catalogador::com
