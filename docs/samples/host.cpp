// A host in C++ that knows nothing but the type library: it opens the maintenance screen of a view.
//
//   x86_64-w64-mingw32-g++ -municode host.cpp -o host.exe -loleaut32 -lole32 -luuid
//   host.exe "DRIVER={SQLite3 ODBC Driver};Database=C:\data\demo.db" 5
#include <windows.h>
// windows.h comes first: the others build on it.
#include <oleauto.h>

#include <cstdio>
#include <cwchar>
#include <initializer_list>
#include <vector>

namespace {

IDispatch* create(const wchar_t* progId) {
    CLSID classId{};
    IDispatch* object = nullptr;
    if (FAILED(CLSIDFromProgID(progId, &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(&object)))) {
        std::fwprintf(stderr, L"%ls cannot be created; is the library registered?\n", progId);
        return nullptr;
    }
    return object;
}

VARIANT textOf(const wchar_t* text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text);
    return value;
}

VARIANT numberOf(SHORT number) {
    VARIANT value{};
    value.vt = VT_I2;
    value.iVal = number;
    return value;
}

VARIANT objectOf(IDispatch* object) {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    object->AddRef();
    return value;
}

/// Calls a member by its name, prints what goes wrong and frees the arguments.
bool use(IDispatch* object, const wchar_t* member, WORD kind,
         std::initializer_list<VARIANT> arguments, VARIANT* result = nullptr) {
    DISPID id = 0;
    auto* name = const_cast<wchar_t*>(member);
    HRESULT outcome = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    // Arguments are handed over from the last to the first.
    std::vector<VARIANT> values(std::rbegin(arguments), std::rend(arguments));
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{values.data(), puts ? &put : nullptr, static_cast<UINT>(values.size()),
                          puts ? 1U : 0U};
    EXCEPINFO error{};
    if (SUCCEEDED(outcome))
        outcome = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, result,
                                 &error, nullptr);
    if (FAILED(outcome))
        std::fwprintf(stderr, L"%ls: %08lx %ls\n", member, static_cast<unsigned long>(outcome),
                      error.bstrDescription == nullptr ? L"" : error.bstrDescription);
    SysFreeString(error.bstrSource);
    SysFreeString(error.bstrDescription);
    SysFreeString(error.bstrHelpFile);
    for (VARIANT& value : values) VariantClear(&value);
    return SUCCEEDED(outcome);
}

bool show(IDispatch* connection, IDispatch* catalogue, const wchar_t* database, SHORT view) {
    VARIANT shown{};
    VARIANT code{};
    if (!use(connection, L"Connect", DISPATCH_PROPERTYPUT, {textOf(database)}) ||
        !use(connection, L"EstablishConnection", DISPATCH_METHOD, {}) ||
        !use(catalogue, L"Coneccion", DISPATCH_PROPERTYPUTREF, {objectOf(connection)}) ||
        !use(catalogue, L"Empresa", DISPATCH_PROPERTYPUT, {numberOf(1)}) ||
        !use(catalogue, L"AppKey", DISPATCH_PROPERTYPUT, {textOf(L"VEM04")}) ||
        !use(catalogue, L"Idioma", DISPATCH_PROPERTYPUT, {numberOf(1)}) ||
        // Comes back when the screen is closed.
        !use(catalogue, L"ActivarABM", DISPATCH_METHOD, {numberOf(view)}, &shown) ||
        !use(catalogue, L"IDModificado", DISPATCH_PROPERTYGET, {}, &code))
        return false;
    if (shown.boolVal == VARIANT_FALSE)
        std::wprintf(L"The view was not opened\n");
    else
        std::wprintf(L"Last code saved or deleted: %ld\n", code.lVal);
    return true;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    if (argc != 3) {
        std::fwprintf(stderr, L"host.exe CONNECTION VIEW\n");
        return 2;
    }
    // The screen belongs to a thread of its own kind: an apartment with a message loop.
    CoInitialize(nullptr);
    IDispatch* connection = create(L"vemDatos.rdoConnection");
    IDispatch* catalogue = create(L"Catalogador.clsCatalogador");
    const bool done =
        connection != nullptr && catalogue != nullptr &&
        show(connection, catalogue, argv[1], static_cast<SHORT>(std::wcstol(argv[2], nullptr, 10)));
    if (catalogue != nullptr) catalogue->Release();
    if (connection != nullptr) connection->Release();
    CoUninitialize();
    return done ? 0 : 1;
}
