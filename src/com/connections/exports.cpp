#include "com/automation/registration.h"
#include "com/connections/connection_object.h"

namespace {

const std::vector<catalogador::com::LibraryClass>& classes() {
    static const std::vector<catalogador::com::LibraryClass> made{
        {catalogador::com::CLSID_rdoConnection, L"vemDatos.rdoConnection",
         L"vemDatos.rdoConnection", L"Apartment", []() -> IUnknown* {
             return static_cast<IDispatch*>(new catalogador::com::ConnectionObject);
         }}};
    return made;
}

}  // namespace

// NOLINTBEGIN(readability-identifier-naming): the names are the platform's
STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return catalogador::com::classObject(classes().data(), classes().size(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return catalogador::com::library_use::canUnload();
}

STDAPI DllRegisterServer() {
    return catalogador::com::registerLibrary(classes(), {});
}

STDAPI DllUnregisterServer() {
    return catalogador::com::unregisterLibrary(classes(), {});
}
// NOLINTEND(readability-identifier-naming)
