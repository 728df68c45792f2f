#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "com/automation/com_api.h"
#include "runtime/variant.h"

namespace catalogador::com {

/// A call of automation could not be understood: one of the DISP_E_… codes.
struct CallError {
    HRESULT result;
};

/// The arguments of a call by IDispatch, counted from 0 in the order in which they are written.
/// What cannot be made of them is thrown as a CallError.
class Arguments {
  public:
    /// The first `named` ones may be given by name, the number of which is their place.
    Arguments(const DISPPARAMS& parameters, WORD kind, UINT named = 0);

    /// Raises DISP_E_BADPARAMCOUNT unless there are from `fewest` to `most`.
    void expect(UINT fewest, UINT most) const;
    [[nodiscard]] UINT count() const { return static_cast<UINT>(values_.size()); }
    [[nodiscard]] bool puts() const {
        return (kind_ & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    }
    /// Whether an argument was left out: at the end, or with nothing between two commas.
    [[nodiscard]] bool missing(UINT index) const;

    [[nodiscard]] std::int16_t integer(UINT index) const;
    [[nodiscard]] std::int32_t longInteger(UINT index) const;
    /// Numbers, dates and booleans are taken as texts too, as they are in every such language.
    [[nodiscard]] std::string text(UINT index) const;
    /// Null for Nothing.
    [[nodiscard]] IDispatch* object(UINT index) const;
    [[nodiscard]] Variant value(UINT index) const;

  private:
    [[nodiscard]] const VARIANT& at(UINT index) const;

    /// In their order; null for one that was left out.
    std::vector<const VARIANT*> values_;
    WORD kind_;
};

}  // namespace catalogador::com
