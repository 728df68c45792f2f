#include "com/automation/automation_values.h"

#include <cmath>
#include <limits>
#include <system_error>

#include "adapters/system/wide_text.h"

namespace catalogador::com {

namespace {

constexpr double secondsPerDay = 86400;
constexpr std::int64_t microseconds = 1000000;

[[noreturn]] void mismatch() {
    throw RuntimeError(error_number::typeMismatch, "Type mismatch");
}

DATE dateNumber(const Date& date) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(date.year);
    time.wMonth = static_cast<WORD>(date.month);
    time.wDay = static_cast<WORD>(date.day);
    DATE day = 0;
    if (SystemTimeToVariantTime(&time, &day) == 0) mismatch();
    const double seconds =
        date.hour * 3600.0 + date.minute * 60.0 + date.second + date.nanosecond / 1e9;
    // Before the first day of the calendar of automation the time still counts forward.
    return day < 0 ? day - seconds / secondsPerDay : day + seconds / secondsPerDay;
}

Date dateOf(DATE number) {
    double day = std::trunc(number);
    auto units = std::llround(std::abs(number - day) * secondsPerDay * microseconds);
    constexpr std::int64_t unitsPerDay = 86400 * microseconds;
    if (units >= unitsPerDay) {
        units -= unitsPerDay;
        day += 1;
    }
    SYSTEMTIME time{};
    if (VariantTimeToSystemTime(day, &time) == 0) mismatch();
    const auto seconds = static_cast<int>(units / microseconds);
    return {time.wYear,
            time.wMonth,
            time.wDay,
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60,
            static_cast<std::int32_t>(units % microseconds * 1000)};
}

void setText(VARIANT& target, std::string_view text) {
    target.vt = VT_BSTR;
    target.bstrVal = newText(text);
}

struct Writer {
    VARIANT& target;

    void operator()(Null) const { target.vt = VT_NULL; }
    void operator()(bool value) const {
        target.vt = VT_BOOL;
        target.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int64_t value) const {
        if (value >= std::numeric_limits<LONG>::min() &&
            value <= std::numeric_limits<LONG>::max()) {
            target.vt = VT_I4;
            target.lVal = static_cast<LONG>(value);
        } else {
            target.vt = VT_I8;
            target.llVal = value;
        }
    }
    void operator()(double value) const {
        target.vt = VT_R8;
        target.dblVal = value;
    }
    void operator()(const Decimal& value) const {
        DECIMAL number{};
        if (FAILED(VarDecFromStr(system::wideOf(value.text).data(), LOCALE_INVARIANT, 0, &number)))
            return setText(target, value.text);
        target.decVal = number;
        target.vt = VT_DECIMAL;
    }
    void operator()(const Date& value) const {
        target.vt = VT_DATE;
        target.date = dateNumber(value);
    }
    void operator()(const std::string& value) const { setText(target, value); }
};

Decimal decimalOf(const VARIANT& value) {
    AutomationValue text;
    if (FAILED(convertValue(text.get(), value, VT_BSTR, LOCALE_INVARIANT))) mismatch();
    return {textOf(text.get().bstrVal)};
}

std::int64_t wholeNumber(const VARIANT& value) {
    AutomationValue number;
    if (FAILED(convertValue(number.get(), value, VT_I8))) mismatch();
    return number.get().llVal;
}

}  // namespace

AutomationValue::AutomationValue(const Variant& value) {
    VariantInit(&value_);
    std::visit(Writer{value_}, value.storage());
}

std::string textOf(BSTR text) {
    return system::utf8Of(std::wstring_view(text, SysStringLen(text)));
}

BSTR newText(std::string_view text) {
    const std::wstring wide = system::wideOf(text);
    BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (made == nullptr) throw std::bad_alloc();
    return made;
}

Variant variantOf(const VARIANT& value) {
    if ((value.vt & VT_BYREF) != 0) {
        AutomationValue plain;
        if (FAILED(copyPlain(plain.get(), value))) mismatch();
        return variantOf(plain.get());
    }
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return Null{};
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE;
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UINT:
            return wholeNumber(value);
        case VT_R4:
            return static_cast<double>(value.fltVal);
        case VT_R8:
            return value.dblVal;
        case VT_UI8:
        case VT_CY:
        case VT_DECIMAL:
            return decimalOf(value);
        case VT_DATE:
            return dateOf(value.date);
        case VT_BSTR:
            return textOf(value.bstrVal);
        default:
            mismatch();
    }
}

HRESULT resultOf(std::int32_t errorNumber) {
    constexpr std::int32_t mostNumbered = 0xFFFF;
    if (errorNumber <= 0 || errorNumber > mostNumbered)
        return errorNumber < 0 ? errorNumber : E_FAIL;
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, errorNumber);
}

std::int32_t errorNumberOf(HRESULT result) {
    return HRESULT_FACILITY(result) == FACILITY_CONTROL ? HRESULT_CODE(result) : result;
}

std::string systemText(HRESULT result) {
    std::string text = std::system_category().message(result);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

}  // namespace catalogador::com
