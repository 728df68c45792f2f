#pragma once
#include <string>
#include <string_view>

#include "com/automation/com_api.h"
#include "runtime/error.h"
#include "runtime/variant.h"

namespace catalogador::com {

/// A VARIANT that is cleared with its owner.
class AutomationValue {
  public:
    AutomationValue() { VariantInit(&value_); }
    explicit AutomationValue(const Variant& value);
    ~AutomationValue() { VariantClear(&value_); }
    AutomationValue(AutomationValue&& other) noexcept : value_(other.value_) {
        VariantInit(&other.value_);
    }
    AutomationValue& operator=(AutomationValue&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    AutomationValue(const AutomationValue&) = delete;
    AutomationValue& operator=(const AutomationValue&) = delete;

    [[nodiscard]] const VARIANT& get() const { return value_; }
    [[nodiscard]] VARIANT& get() { return value_; }

  private:
    VARIANT value_;
};

/// The UTF-8 text of a text of automation; a null one is empty.
std::string textOf(BSTR text);
/// A text for automation, which the caller frees or hands on.
BSTR newText(std::string_view text);

// The calls of automation do not change what they read, but do not say so.
inline HRESULT copyPlain(VARIANT& target, const VARIANT& source) {
    return VariantCopyInd(&target, const_cast<VARIANT*>(&source));
}
inline HRESULT convertValue(VARIANT& target, const VARIANT& source, VARTYPE type,
                            LCID locale = LOCALE_USER_DEFAULT) {
    return VariantChangeTypeEx(&target, const_cast<VARIANT*>(&source), locale, 0, type);
}

/// The value of a VARIANT, whatever it refers to. Raises typeMismatch for objects and arrays.
Variant variantOf(const VARIANT& value);

/// The code under which automation knows an error of ours, and the way back. Codes that are no
/// numbered errors stay as they are.
HRESULT resultOf(std::int32_t errorNumber);
std::int32_t errorNumberOf(HRESULT result);
/// "The system's text for a code", without a line end.
std::string systemText(HRESULT result);

}  // namespace catalogador::com
