#include <array>

#include "com/automation/com_ptr.h"
#include "com/automation/registration.h"
#include "com/component/catalogador_object.h"

namespace catalogador::com {

namespace {

HMODULE ownLibrary = nullptr;

const std::vector<LibraryClass>& classes() {
    static const std::vector<LibraryClass> made{
        {CLSID_clsCatalogador, L"Catalogador.clsCatalogador", L"Catalogador.clsCatalogador",
         L"Apartment",
         []() -> IUnknown* { return static_cast<_clsCatalogador*>(new CatalogadorObject); }}};
    return made;
}

}  // namespace

HRESULT interfaceDescription(ITypeInfo** info) {
    std::array<wchar_t, 32768> file{};
    GetModuleFileNameW(ownLibrary, file.data(), static_cast<DWORD>(file.size()));
    ComPtr<ITypeLib> library;
    const HRESULT result = LoadTypeLibEx(file.data(), REGKIND_NONE, library.put());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(IID__clsCatalogador, info);
}

}  // namespace catalogador::com

// NOLINTBEGIN(readability-identifier-naming): the names are the platform's
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) catalogador::com::ownLibrary = instance;
    return TRUE;
}

extern "C" BOOL WINAPI DllMainCRTStartup(HINSTANCE instance, DWORD reason, void* reserved);

/// Where the system enters the library. When the process ends, its other threads are gone already
/// and the system takes everything back: tidying up then could wait for them for ever.
extern "C" BOOL WINAPI LibraryEntry(HINSTANCE instance, DWORD reason, void* reserved) {
    const bool processEnds = reason == DLL_PROCESS_DETACH && reserved != nullptr;
    return processEnds ? TRUE : DllMainCRTStartup(instance, reason, reserved);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return catalogador::com::classObject(catalogador::com::classes().data(),
                                         catalogador::com::classes().size(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return catalogador::com::library_use::canUnload();
}

STDAPI DllRegisterServer() {
    return catalogador::com::registerLibrary(catalogador::com::classes(),
                                             catalogador::com::typeLibrary);
}

STDAPI DllUnregisterServer() {
    return catalogador::com::unregisterLibrary(catalogador::com::classes(),
                                               catalogador::com::typeLibrary);
}
// NOLINTEND(readability-identifier-naming)
