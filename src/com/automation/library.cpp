#include "com/automation/library.h"

#include <new>

#include "adapters/system/wide_text.h"
#include "com/automation/automation_values.h"
#include "com/automation/com_ptr.h"

namespace catalogador::com {

namespace {

std::atomic<long> uses = 0;
std::atomic<bool> stays = false;

class ClassFactory : public IClassFactory {
  public:
    explicit ClassFactory(const LibraryClass& made) : made_(made) {}
    virtual ~ClassFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IClassFactory*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        try {
            const auto created = ComPtr<IUnknown>::owning(made_.create());
            return created->QueryInterface(iid, object);
        } catch (const RuntimeError& error) {
            return reportError(error.number(), error.source(), error.description(), IID_NULL);
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (const std::exception& error) {
            return reportError(error_number::cannotCreateObject, "", error.what(), IID_NULL);
        }
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        if (lock != FALSE)
            library_use::add();
        else
            library_use::release();
        return S_OK;
    }

  private:
    const LibraryClass& made_;
    std::atomic<long> references_ = 1;
    CountedObject counted_;
};

}  // namespace

void library_use::add() {
    ++uses;
}
void library_use::release() {
    --uses;
}
void library_use::stay() {
    stays = true;
    // When the host ends its use of COM, libraries go without being asked.
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(&stays), &pinned);
}
HRESULT library_use::canUnload() {
    return uses == 0 && !stays ? S_OK : S_FALSE;
}

HRESULT classObject(const LibraryClass* classes, std::size_t count, REFCLSID classId, REFIID iid,
                    void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    for (std::size_t i = 0; i < count; ++i) {
        if (classes[i].id != classId) continue;
        auto* made = new (std::nothrow) ClassFactory(classes[i]);
        if (made == nullptr) return E_OUTOFMEMORY;
        return ComPtr<ClassFactory>::owning(made)->QueryInterface(iid, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT reportError(std::int32_t number, const std::string& source, const std::string& description,
                    const GUID& iid) {
    const HRESULT result = resultOf(number);
    ComPtr<ICreateErrorInfo> made;
    if (FAILED(CreateErrorInfo(made.put()))) return result;
    made->SetGUID(iid);
    made->SetSource(system::wideOf(source).data());
    made->SetDescription(system::wideOf(description).data());
    ComPtr<IErrorInfo> info;
    if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, info.putVoid())))
        SetErrorInfo(0, info.get());
    return result;
}

}  // namespace catalogador::com
