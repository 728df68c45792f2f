#include "com/component/catalogador_object.h"

#include <new>

#include "com/automation/automation_values.h"
#include "com/automation/late_bound_object.h"
#include "com/component/desk_screen.h"
#include "com/component/window_scope.h"
#include "modules/modLenguaje.h"

namespace catalogador::com {

namespace {

constexpr const char* sourceName = "Catalogador.clsCatalogador";
thread_local int objectsOfThread = 0;

std::string sourceOf(const RuntimeError& error) {
    return error.source().empty() ? sourceName : error.source();
}

bool isProperty(DISPID member) {
    return member <= member_id::idModificado;
}

/// Whether a member can be used in that way.
bool fits(DISPID member, WORD kind) {
    if (!isProperty(member)) return (kind & DISPATCH_METHOD) != 0;
    if (member == member_id::idModificado) return (kind & DISPATCH_PROPERTYGET) != 0;
    if (member == member_id::coneccion)
        return (kind & (DISPATCH_PROPERTYPUTREF | DISPATCH_PROPERTYPUT)) != 0;
    return (kind & DISPATCH_PROPERTYPUT) != 0;
}

}  // namespace

CatalogadorObject::CatalogadorObject() : component_(host_.host()) {
    ++objectsOfThread;
}

CatalogadorObject::~CatalogadorObject() {
    // The texts' library may be gone before this one: it is given back while it is surely there.
    if (--objectsOfThread == 0) gobjLenguaje.reset();
}

HRESULT CatalogadorObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__clsCatalogador)
        *object = static_cast<_clsCatalogador*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG CatalogadorObject::Release() {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT CatalogadorObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__clsCatalogador ? S_OK : S_FALSE;
}

template <class Body>
HRESULT CatalogadorObject::guarded(Body&& body) {
    // The host may let go of the object while the screen is open.
    const auto keepAlive = ComPtr<_clsCatalogador>::sharing(this);
    try {
        body();
        return S_OK;
    } catch (const RuntimeError& error) {
        return reportError(error.number(), sourceOf(error), error.description(),
                           IID__clsCatalogador);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return reportError(error_number::invalidProcedureCall, sourceName, error.what(),
                           IID__clsCatalogador);
    }
}

void CatalogadorObject::setConnection(IDispatch* connection) {
    connection_ = HostConnection(connection);
}

bool CatalogadorObject::activate(SHORT view, LONG code, const std::string& text) {
    const WindowScope windows;
    const HostConnection::Use use(connection_, component_);
    return component_.ActivarABM(view, code, text);
}

std::uint8_t CatalogadorObject::add(SHORT view, const std::string& sequence,
                                    const std::string& text) {
    const HostConnection::Use use(connection_, component_);
    return component_.AddNew(view, sequence, text);
}

HRESULT CatalogadorObject::putref_Coneccion(IDispatch* connection) {
    return guarded([&] { setConnection(connection); });
}

HRESULT CatalogadorObject::put_Empresa(SHORT company) {
    return guarded([&] { component_.Empresa(company); });
}

HRESULT CatalogadorObject::put_AppKey(BSTR key) {
    return guarded([&] { component_.AppKey(textOf(key)); });
}

HRESULT CatalogadorObject::put_Idioma(SHORT language) {
    return guarded([&] { component_.Idioma(language); });
}

HRESULT CatalogadorObject::get_IDModificado(LONG* code) {
    if (code == nullptr) return E_POINTER;
    *code = component_.IDModificado();
    return S_OK;
}

HRESULT CatalogadorObject::ActivarABM(SHORT* ABM, LONG* IDValor, BSTR* Valor,
                                      VARIANT_BOOL* result) {
    if (result == nullptr) return E_POINTER;
    *result = VARIANT_FALSE;
    if (ABM == nullptr || IDValor == nullptr || Valor == nullptr) return E_POINTER;
    return guarded([&] {
        if (activate(*ABM, *IDValor, textOf(*Valor))) *result = VARIANT_TRUE;
    });
}

HRESULT CatalogadorObject::AddNew(SHORT* IDVista, BSTR* NombreVista, BSTR* Valor, BYTE* result) {
    if (result == nullptr) return E_POINTER;
    *result = 0;
    if (IDVista == nullptr || NombreVista == nullptr || Valor == nullptr) return E_POINTER;
    return guarded([&] { *result = add(*IDVista, textOf(*NombreVista), textOf(*Valor)); });
}

HRESULT CatalogadorObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT CatalogadorObject::GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return index == 0 ? interfaceDescription(info) : DISP_E_BADINDEX;
}

HRESULT CatalogadorObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID /*locale*/,
                                         DISPID* ids) {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    for (UINT i = 0; i < count; ++i)
        if (names[i] == nullptr) return E_POINTER;
    ComPtr<ITypeInfo> description;
    const HRESULT result = interfaceDescription(description.put());
    return FAILED(result) ? result : DispGetIDsOfNames(description.get(), names, count, ids);
}

HRESULT CatalogadorObject::Invoke(DISPID member, REFIID iid, LCID /*locale*/, WORD kind,
                                  DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                  UINT* /*wrong*/) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_POINTER;
    if (result != nullptr) VariantInit(result);
    if (member < member_id::coneccion || member > member_id::addNew || !fits(member, kind))
        return DISP_E_MEMBERNOTFOUND;
    const auto keepAlive = ComPtr<_clsCatalogador>::sharing(this);
    try {
        VARIANT given{};
        callMember(member, kind, Arguments(*parameters, kind, isProperty(member) ? 0 : 3), given);
        if (result != nullptr) *result = given;
        return S_OK;
    } catch (const CallError& error) {
        return error.result;
    } catch (const RuntimeError& error) {
        return tellException(info, error.number(), sourceOf(error), error.description());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return tellException(info, error_number::invalidProcedureCall, sourceName, error.what());
    }
}

void CatalogadorObject::callMember(DISPID member, WORD /*kind*/, const Arguments& arguments,
                                   VARIANT& result) {
    switch (member) {
        case member_id::coneccion:
            arguments.expect(1, 1);
            return setConnection(arguments.object(0));
        case member_id::empresa:
            arguments.expect(1, 1);
            return component_.Empresa(arguments.integer(0));
        case member_id::appKey:
            arguments.expect(1, 1);
            return component_.AppKey(arguments.text(0));
        case member_id::idioma:
            arguments.expect(1, 1);
            return component_.Idioma(arguments.integer(0));
        case member_id::idModificado:
            arguments.expect(0, 0);
            result.vt = VT_I4;
            result.lVal = component_.IDModificado();
            return;
        case member_id::activarABM: {
            arguments.expect(1, 3);
            const SHORT view = arguments.integer(0);
            const LONG code = arguments.missing(1) ? 0 : arguments.longInteger(1);
            const std::string text = arguments.missing(2) ? std::string() : arguments.text(2);
            result.boolVal = activate(view, code, text) ? VARIANT_TRUE : VARIANT_FALSE;
            result.vt = VT_BOOL;
            return;
        }
        default: {
            arguments.expect(3, 3);
            const SHORT view = arguments.integer(0);
            const std::string sequence = arguments.text(1);
            result.bVal = add(view, sequence, arguments.text(2));
            result.vt = VT_UI1;
        }
    }
}

}  // namespace catalogador::com
