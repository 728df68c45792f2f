#include <map>

#include "adapters/languages/po_file.h"
#include "com/automation/late_bound_object.h"
#include "com/automation/registration.h"
#include "com/languages/resource_id.h"
#include "runtime/text.h"

namespace catalogador::com {

namespace {

HMODULE ownLibrary = nullptr;

using Texts = std::map<std::string, std::string>;

Texts readTexts() {
    HRSRC found = FindResourceW(ownLibrary, MAKEINTRESOURCEW(CATALOGUE_RESOURCE), RT_RCDATA);
    HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(ownLibrary, found);
    if (loaded == nullptr)
        throw RuntimeError(error_number::cannotCreateObject, "The library has no texts");
    const std::string content(static_cast<const char*>(LockResource(loaded)),
                              SizeofResource(ownLibrary, found));
    return languages::readPoText(content, "of " LIBRARY_NAME);
}

/// The catalogue is read once, by whoever comes first.
const Texts& texts() {
    static const Texts read = readTexts();
    return read;
}

enum Id : DISPID { resLoad = 1, appName, secondaryLanguage };

/// Gives the texts of the catalogue that was compiled into this library.
class ResourcesObject : public LateBoundObject {
  public:
    ResourcesObject() { texts(); }

  protected:
    [[nodiscard]] const std::vector<LateBoundMember>& members() const override {
        static const std::vector<LateBoundMember> all{
            {L"resLoad", resLoad}, {L"IDAppName", appName}, {L"IDSLng", secondaryLanguage}};
        return all;
    }
    [[nodiscard]] std::string sourceName() const override { return LIBRARY_NAME ".clsResources"; }
    AutomationValue invoke(DISPID member, const Arguments& arguments) override {
        arguments.expect(1, 1);
        if (member == resLoad && !arguments.puts()) {
            const std::int32_t id = arguments.longInteger(0);
            const auto text = texts().find(decimalText(id));
            if (text == texts().end())
                throw RuntimeError(error_number::invalidProcedureCall,
                                   "The language has no text " + decimalText(id));
            return AutomationValue(text->second);
        }
        // The texts are the same whoever asks, and whatever the secondary language is.
        if (member == appName && arguments.puts()) {
            static_cast<void>(arguments.text(0));
            return {};
        }
        if (member == secondaryLanguage && arguments.puts()) {
            constexpr std::int32_t mostLanguages = 255;
            const std::int32_t language = arguments.longInteger(0);
            if (language < 0 || language > mostLanguages) throw CallError{DISP_E_OVERFLOW};
            return {};
        }
        throw CallError{DISP_E_MEMBERNOTFOUND};
    }
};

const std::vector<LibraryClass>& classes() {
    static const std::vector<LibraryClass> made{
        {LIBRARY_CLASS_ID, L"" LIBRARY_NAME ".clsResources", L"" LIBRARY_NAME ".clsResources",
         L"Both", []() -> IUnknown* { return new ResourcesObject; }}};
    return made;
}

}  // namespace

}  // namespace catalogador::com

// NOLINTBEGIN(readability-identifier-naming): the names are the platform's
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) catalogador::com::ownLibrary = instance;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return catalogador::com::classObject(catalogador::com::classes().data(),
                                         catalogador::com::classes().size(), classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return catalogador::com::library_use::canUnload();
}

STDAPI DllRegisterServer() {
    return catalogador::com::registerLibrary(catalogador::com::classes(), {});
}

STDAPI DllUnregisterServer() {
    return catalogador::com::unregisterLibrary(catalogador::com::classes(), {});
}
// NOLINTEND(readability-identifier-naming)
