#include "com/automation/automation_languages.h"

#include "adapters/system/wide_text.h"
#include "com/automation/automation_object.h"
#include "runtime/convert.h"

namespace catalogador::com {

namespace {

class AutomationTexts : public clsResources {
  public:
    explicit AutomationTexts(AutomationObject library) : library_(std::move(library)) {}

    [[nodiscard]] std::string resLoad(std::int32_t id) const override {
        // Only a text that is asked for can be missing: a library without the member is loaded too.
        if (resLoad_ == DISPID_UNKNOWN) resLoad_ = library_.idOf(L"resLoad");
        return toTextOrEmpty(variantOf(library_.get(resLoad_, {id}).get()), Regional{});
    }
    void IDAppName(const std::string& name) override { library_.put(L"IDAppName", name); }
    void IDSLng(std::uint8_t number) override { library_.putByte(L"IDSLng", number); }

  private:
    AutomationObject library_;
    mutable DISPID resLoad_ = DISPID_UNKNOWN;
};

[[noreturn]] void fail(const std::string& progId, HRESULT result) {
    throw RuntimeError(error_number::cannotCreateObject,
                       "The object " + progId + " cannot be created: " + systemText(result));
}

}  // namespace

std::unique_ptr<clsResources> AutomationLanguages::create(const std::string& progId) {
    CLSID classId{};
    HRESULT result = CLSIDFromProgID(system::wideOf(progId).c_str(), &classId);
    if (FAILED(result)) fail(progId, result);
    ComPtr<IDispatch> library;
    result = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                              IID_IDispatch, library.putVoid());
    if (FAILED(result)) fail(progId, result);
    return std::make_unique<AutomationTexts>(AutomationObject(std::move(library)));
}

}  // namespace catalogador::com
