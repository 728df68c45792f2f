#include "com/automation/arguments.h"

#include "com/automation/automation_values.h"

namespace catalogador::com {

namespace {

void check(HRESULT result) {
    if (FAILED(result)) throw CallError{result};
}

AutomationValue converted(const VARIANT& value, VARTYPE type) {
    AutomationValue plain;
    check(copyPlain(plain.get(), value));
    // Objects have a value of their own that could be asked for; a number or a text it is not.
    const VARTYPE given = plain.get().vt;
    if (given == VT_DISPATCH || given == VT_UNKNOWN || given == VT_NULL)
        throw CallError{DISP_E_TYPEMISMATCH};
    AutomationValue result;
    check(convertValue(result.get(), plain.get(), type));
    return result;
}

}  // namespace

Arguments::Arguments(const DISPPARAMS& parameters, WORD kind, UINT named) : kind_(kind) {
    const UINT count = parameters.cArgs;
    const UINT byName = parameters.cNamedArgs;
    if (byName > count) throw CallError{DISP_E_BADPARAMCOUNT};
    if ((count > 0 && parameters.rgvarg == nullptr) ||
        (byName > 0 && parameters.rgdispidNamedArgs == nullptr))
        throw CallError{E_POINTER};
    for (UINT at = count; at > byName; --at) values_.push_back(&parameters.rgvarg[at - 1]);
    for (UINT at = 0; at < byName; ++at) {
        const DISPID name = parameters.rgdispidNamedArgs[at];
        if (name == DISPID_PROPERTYPUT && puts()) {
            values_.push_back(&parameters.rgvarg[at]);
            continue;
        }
        if (named == 0) throw CallError{DISP_E_NONAMEDARGS};
        const auto place = static_cast<std::size_t>(name);
        if (name < 0 || place >= named) throw CallError{DISP_E_PARAMNOTFOUND};
        if (place >= values_.size()) values_.resize(place + 1);
        if (values_[place] != nullptr) throw CallError{DISP_E_BADPARAMCOUNT};
        values_[place] = &parameters.rgvarg[at];
    }
}

void Arguments::expect(UINT fewest, UINT most) const {
    if (count() < fewest || count() > most) throw CallError{DISP_E_BADPARAMCOUNT};
}

const VARIANT& Arguments::at(UINT index) const {
    if (index >= count() || values_[index] == nullptr) throw CallError{DISP_E_PARAMNOTOPTIONAL};
    return *values_[index];
}

bool Arguments::missing(UINT index) const {
    if (index >= count() || values_[index] == nullptr) return true;
    const VARIANT& value = at(index);
    if (value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal != nullptr)
        return value.pvarVal->vt == VT_ERROR && value.pvarVal->scode == DISP_E_PARAMNOTFOUND;
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

std::int16_t Arguments::integer(UINT index) const {
    if (missing(index)) throw CallError{DISP_E_PARAMNOTOPTIONAL};
    return converted(at(index), VT_I2).get().iVal;
}

std::int32_t Arguments::longInteger(UINT index) const {
    if (missing(index)) throw CallError{DISP_E_PARAMNOTOPTIONAL};
    return converted(at(index), VT_I4).get().lVal;
}

std::string Arguments::text(UINT index) const {
    if (missing(index)) throw CallError{DISP_E_PARAMNOTOPTIONAL};
    return textOf(converted(at(index), VT_BSTR).get().bstrVal);
}

IDispatch* Arguments::object(UINT index) const {
    const VARIANT* value = &at(index);
    if (value->vt == (VT_BYREF | VT_VARIANT)) value = value->pvarVal;
    if (value == nullptr) throw CallError{E_POINTER};
    if (value->vt == VT_DISPATCH) return value->pdispVal;
    if (value->vt == (VT_BYREF | VT_DISPATCH) && value->ppdispVal != nullptr)
        return *value->ppdispVal;
    if (value->vt == VT_UNKNOWN && value->punkVal == nullptr) return nullptr;
    throw CallError{DISP_E_TYPEMISMATCH};
}

Variant Arguments::value(UINT index) const {
    if (missing(index)) throw CallError{DISP_E_PARAMNOTOPTIONAL};
    return variantOf(at(index));
}

}  // namespace catalogador::com
