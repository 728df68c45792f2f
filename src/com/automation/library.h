#pragma once
#include <atomic>
#include <string>

#include "com/automation/com_api.h"

namespace catalogador::com {

/// What keeps a COM library in memory.
namespace library_use {
/// Counts an object of the library or a lock on it.
void add();
void release();
/// The library stays from here on: there was a window, and the system may still hold what belongs
/// to it.
void stay();
/// The answer of DllCanUnloadNow.
HRESULT canUnload();
}  // namespace library_use

/// Counts its owner as an object of the library.
class CountedObject {
  public:
    CountedObject() { library_use::add(); }
    ~CountedObject() { library_use::release(); }
    CountedObject(const CountedObject&) = delete;
    CountedObject& operator=(const CountedObject&) = delete;
};

/// A class that the library creates.
struct LibraryClass {
    CLSID id;
    /// Name under which programs know it, and what people read in lists of classes.
    const wchar_t* progId;
    const wchar_t* description;
    const wchar_t* threading;
    /// Gives an object with one reference; what it raises becomes the error of the creation.
    IUnknown* (*create)();
};

/// Where a library's type library is registered; all zero for one without.
struct LibraryTypes {
    GUID id{};
    WORD major = 0;
    WORD minor = 0;
    LCID locale = 0;
};

/// The answer of DllGetClassObject.
HRESULT classObject(const LibraryClass* classes, std::size_t count, REFCLSID classId, REFIID iid,
                    void** object);

/// Leaves an error for the caller of the current call to fetch; gives its code.
HRESULT reportError(std::int32_t number, const std::string& source, const std::string& description,
                    const GUID& iid);

}  // namespace catalogador::com
