#pragma once
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "com/automation/automation_values.h"
#include "com/automation/com_ptr.h"

namespace catalogador::com {

/// An object of another library, driven by the names of its members. What the object reports as an
/// error is raised as a RuntimeError with its number and description.
class AutomationObject {
  public:
    AutomationObject() = default;
    explicit AutomationObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    [[nodiscard]] IDispatch* get() const { return object_.get(); }
    explicit operator bool() const { return static_cast<bool>(object_); }

    [[nodiscard]] bool has(const wchar_t* member) const;
    /// The number by which the object knows a member. Raises RuntimeError (438) when it has none.
    [[nodiscard]] DISPID idOf(const wchar_t* member) const;

    AutomationValue call(const wchar_t* member,
                         std::initializer_list<Variant> arguments = {}) const;
    AutomationValue get(const wchar_t* member, std::initializer_list<Variant> arguments = {}) const;
    AutomationValue get(DISPID member, std::initializer_list<Variant> arguments = {}) const;
    void put(const wchar_t* member, const Variant& value) const;
    void put(DISPID member, const Variant& value) const;
    /// Hands the value over as one of 8 bits, which no Variant is.
    void putByte(const wchar_t* member, std::uint8_t value) const;

  private:
    AutomationValue invoke(DISPID member, WORD kind, std::vector<AutomationValue> values) const;
    AutomationValue invoke(DISPID member, WORD kind,
                           std::initializer_list<Variant> arguments) const;

    ComPtr<IDispatch> object_;
};

/// The object in a value. Raises RuntimeError (objectNotSet) when there is none.
AutomationObject objectIn(const AutomationValue& value);

}  // namespace catalogador::com
