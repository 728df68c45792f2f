#include "com/automation/late_bound_object.h"

#include <cwchar>
#include <new>

namespace catalogador::com {

HRESULT LateBoundObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IDispatch*>(this);
    return S_OK;
}

ULONG LateBoundObject::Release() {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

HRESULT LateBoundObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT LateBoundObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT LateBoundObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID /*locale*/,
                                       DISPID* ids) {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (count == 0) return S_OK;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    if (names[0] == nullptr) return E_POINTER;
    for (const LateBoundMember& member : members())
        if (_wcsicmp(member.name, names[0]) == 0) {
            ids[0] = member.id;
            // The names after the first one would be those of arguments.
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
        }
    return DISP_E_UNKNOWNNAME;
}

HRESULT LateBoundObject::Invoke(DISPID member, REFIID iid, LCID /*locale*/, WORD kind,
                                DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                UINT* /*wrong*/) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_POINTER;
    if (result != nullptr) VariantInit(result);
    const auto keepAlive = ComPtr<IDispatch>::sharing(this);
    try {
        AutomationValue value = invoke(member, Arguments(*parameters, kind));
        if (result != nullptr) std::swap(*result, value.get());
        return S_OK;
    } catch (const CallError& error) {
        return error.result;
    } catch (const RuntimeError& error) {
        return tellException(info, error.number(), sourceName(), error.description());
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& error) {
        return tellException(info, error_number::invalidProcedureCall, sourceName(), error.what());
    }
}

AutomationValue objectValue(IDispatch* object) {
    AutomationValue value;
    value.get().vt = VT_DISPATCH;
    value.get().pdispVal = object;
    return value;
}

HRESULT tellException(EXCEPINFO* info, std::int32_t number, const std::string& source,
                      const std::string& description) {
    if (info == nullptr) return resultOf(number);
    *info = {};
    info->scode = resultOf(number);
    info->bstrSource = newText(source);
    info->bstrDescription = newText(description);
    return DISP_E_EXCEPTION;
}

}  // namespace catalogador::com
