#include "com/automation/registration.h"
#include "com/connections/connection_object.h"

namespace {

const std::vector<catalogador::LibraryClass>& classes() {
    static const std::vector<catalogador::LibraryClass> made{
        {catalogador::CLSID_rdoConnection, L"vemDatos.rdoConnection", L"vemDatos.rdoConnection",
         L"Apartment",
         []() -> IUnknown* { return static_cast<IDispatch*>(new catalogador::ConnectionObject); }}};
    return made;
}

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): the names are the platform's
STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return catalogador::classObject(classes().data(), classes().size(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return catalogador::library_use::canUnload();
}

STDAPI DllRegisterServer() {
    return catalogador::registerLibrary(classes(), {});
}

STDAPI DllUnregisterServer() {
    return catalogador::unregisterLibrary(classes(), {});
}
// NOLINTEND(readability-identifier-naming)
