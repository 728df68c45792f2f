#include "com/automation/automation_object.h"

#include <vector>

#include "adapters/system/wide_text.h"

namespace catalogador::com {

namespace {

constexpr std::int32_t noSuchMember = 438;

[[noreturn]] void raise(HRESULT result, EXCEPINFO& info) {
    if (info.pfnDeferredFillIn != nullptr) info.pfnDeferredFillIn(&info);
    const HRESULT code = result != DISP_E_EXCEPTION ? result
                         : info.scode != 0          ? info.scode
                                                    : resultOf(info.wCode);
    std::string description = textOf(info.bstrDescription);
    const std::string source = textOf(info.bstrSource);
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
    if (description.empty()) description = systemText(code);
    throw RuntimeError(errorNumberOf(code), description, source);
}

}  // namespace

bool AutomationObject::has(const wchar_t* member) const {
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(member);
    return object_ &&
           SUCCEEDED(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id));
}

DISPID AutomationObject::idOf(const wchar_t* member) const {
    if (!object_) throw RuntimeError(error_number::objectNotSet, "Object variable not set");
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(member);
    if (FAILED(object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id)))
        throw RuntimeError(noSuchMember, "The object has no member " + system::utf8Of(member));
    return id;
}

AutomationValue AutomationObject::call(const wchar_t* member,
                                       std::initializer_list<Variant> arguments) const {
    return invoke(idOf(member), DISPATCH_METHOD, arguments);
}

AutomationValue AutomationObject::get(const wchar_t* member,
                                      std::initializer_list<Variant> arguments) const {
    return get(idOf(member), arguments);
}

AutomationValue AutomationObject::get(DISPID member,
                                      std::initializer_list<Variant> arguments) const {
    // As languages without types do: the member may be either.
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

void AutomationObject::put(const wchar_t* member, const Variant& value) const {
    put(idOf(member), value);
}

void AutomationObject::put(DISPID member, const Variant& value) const {
    invoke(member, DISPATCH_PROPERTYPUT, {value});
}

void AutomationObject::putByte(const wchar_t* member, std::uint8_t value) const {
    std::vector<AutomationValue> values(1);
    values.front().get().vt = VT_UI1;
    values.front().get().bVal = value;
    invoke(idOf(member), DISPATCH_PROPERTYPUT, std::move(values));
}

AutomationValue AutomationObject::invoke(DISPID member, WORD kind,
                                         std::initializer_list<Variant> arguments) const {
    std::vector<AutomationValue> values;
    for (const Variant& argument : arguments) values.emplace_back(argument);
    return invoke(member, kind, std::move(values));
}

AutomationValue AutomationObject::invoke(DISPID member, WORD kind,
                                         std::vector<AutomationValue> values) const {
    if (!object_) throw RuntimeError(error_number::objectNotSet, "Object variable not set");
    // They are handed over from the last to the first.
    std::vector<VARIANT> reversed;
    for (auto value = values.rbegin(); value != values.rend(); ++value)
        reversed.push_back(value->get());
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    const bool puts = kind == DISPATCH_PROPERTYPUT;
    if (puts) {
        parameters.rgdispidNamedArgs = &putName;
        parameters.cNamedArgs = 1;
    }
    AutomationValue result;
    EXCEPINFO info{};
    UINT wrong = 0;
    const HRESULT outcome =
        object_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                        puts ? nullptr : &result.get(), &info, &wrong);
    if (FAILED(outcome)) raise(outcome, info);
    return result;
}

AutomationObject objectIn(const AutomationValue& value) {
    const VARIANT& held = value.get();
    ComPtr<IDispatch> object;
    if (held.vt == VT_DISPATCH)
        object = ComPtr<IDispatch>::sharing(held.pdispVal);
    else if (held.vt == VT_UNKNOWN && held.punkVal != nullptr)
        held.punkVal->QueryInterface(IID_IDispatch, object.putVoid());
    if (!object) throw RuntimeError(error_number::objectNotSet, "Object variable not set");
    return AutomationObject(std::move(object));
}

}  // namespace catalogador::com
