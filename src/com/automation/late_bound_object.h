#pragma once
#include <atomic>
#include <string>
#include <vector>

#include "com/automation/arguments.h"
#include "com/automation/automation_values.h"
#include "com/automation/com_ptr.h"
#include "com/automation/library.h"

namespace catalogador::com {

/// A member of an object that is known by its names alone. Several members may share a number.
struct LateBoundMember {
    const wchar_t* name;
    DISPID id;
};

/// The base of objects that are driven by the names of their members.
class LateBoundObject : public IDispatch {
  public:
    LateBoundObject() = default;
    virtual ~LateBoundObject() = default;
    LateBoundObject(const LateBoundObject&) = delete;
    LateBoundObject& operator=(const LateBoundObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                     UINT* wrong) override;

  protected:
    /// The names by which the members are found, without regard to case.
    [[nodiscard]] virtual const std::vector<LateBoundMember>& members() const = 0;
    /// Name of the object in its errors.
    [[nodiscard]] virtual std::string sourceName() const = 0;
    /// Carries a call out. Raises RuntimeError or CallError.
    virtual AutomationValue invoke(DISPID member, const Arguments& arguments) = 0;

  private:
    std::atomic<long> references_ = 1;
    CountedObject counted_;
};

/// A value that holds an object, whose reference is taken over.
AutomationValue objectValue(IDispatch* object);

/// Fills in what a caller by IDispatch is told of an error.
HRESULT tellException(EXCEPINFO* info, std::int32_t number, const std::string& source,
                      const std::string& description);

}  // namespace catalogador::com
