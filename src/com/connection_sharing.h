#pragma once
#include "com/automation/com_api.h"

namespace catalogador::com {

/// {61FA3CF1-995E-49BA-BC3B-39EF981E4878}
constexpr IID IID_IConnectionSharing = {
    0x61fa3cf1, 0x995e, 0x49ba, {0xbc, 0x3b, 0x39, 0xef, 0x98, 0x1e, 0x48, 0x78}};

/// Lets another library of ours work on the database of an object directly, in the same thread.
struct IConnectionSharing : public IUnknown {
    /// The driver manager's handle, which stays open until the same number of calls of Detach; or,
    /// of a SQLite file, which each library opens for itself, its name, for the caller to free.
    /// The other one is null. Fails when the connection is not open.
    virtual HRESULT STDMETHODCALLTYPE Attach(void** handle, BSTR* file) = 0;
    virtual HRESULT STDMETHODCALLTYPE Detach() = 0;
};

}  // namespace catalogador::com
