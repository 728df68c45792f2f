#include "hosted.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "adapters/system/desk.h"
#include "adapters/system/wide_text.h"
#include "runtime/convert.h"

namespace catalogador::test {

namespace {

/// Passes calls on, and has nothing but IDispatch.
class Foreign : public IDispatch {
  public:
    explicit Foreign(IDispatch* object) : object_(com::ComPtr<IDispatch>::sharing(object)) {}
    virtual ~Foreign() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        AddRef();
        *object = static_cast<IDispatch*>(this);
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return object_->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return object_->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        return object_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                     UINT* wrong) override {
        return object_->Invoke(member, iid, locale, kind, parameters, result, info, wrong);
    }

  private:
    ULONG references_ = 1;
    com::ComPtr<IDispatch> object_;
};

std::string windowText(HWND window) {
    std::array<wchar_t, 2000> text{};
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return system::utf8Of(text.data());
}

BOOL CALLBACK findBox(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    std::array<wchar_t, 20> name{};
    GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    if (process != GetCurrentProcessId() || std::wstring(name.data()) != L"#32770" ||
        IsWindowVisible(window) == 0)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

BOOL CALLBACK addText(HWND window, LPARAM text) {
    auto& whole = *reinterpret_cast<std::string*>(text);
    whole += windowText(window) + "\n";
    return TRUE;
}

}  // namespace

com::AutomationObject created(const wchar_t* progId) {
    CLSID classId{};
    com::ComPtr<IDispatch> object;
    if (SUCCEEDED(CLSIDFromProgID(progId, &classId)))
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.putVoid());
    if (!object) throw RuntimeError(error_number::cannotCreateObject, system::utf8Of(progId));
    return com::AutomationObject(std::move(object));
}

com::ComPtr<com::_clsCatalogador> createdComponent() {
    com::ComPtr<com::_clsCatalogador> component;
    const HRESULT result =
        CoCreateInstance(com::CLSID_clsCatalogador, nullptr, CLSCTX_INPROC_SERVER,
                         com::IID__clsCatalogador, component.putVoid());
    EXPECT_EQ(result, S_OK);
    return component;
}

DemoConnection::DemoConnection() : connection_(created(L"vemDatos.rdoConnection")) {
    static int copies = 0;
    file_ = std::string(std::getenv("CATALOGADOR_TEST_FOLDER")) + "/hosted-" +
            std::to_string(GetCurrentProcessId()) + "-" + std::to_string(copies++) + ".db";
    std::filesystem::copy_file(std::getenv("CATALOGADOR_TEST_DEMO"), file_,
                               std::filesystem::copy_options::overwrite_existing);
    connection_.put(L"Connect", "DRIVER={SQLite3};Database=" + file_ + ";Timeout=5000");
    connection_.call(L"EstablishConnection");
}

DemoConnection::~DemoConnection() {
    connection_ = com::AutomationObject();
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
}

Variant DemoConnection::value(const std::string& sql) const {
    const com::AutomationObject rows = com::objectIn(connection_.call(L"OpenResultset", {sql}));
    return com::variantOf(com::objectIn(rows.get(L"rdoColumns", {0})).get(L"Value").get());
}

com::ComPtr<IDispatch> asForeign(IDispatch* object) {
    return com::ComPtr<IDispatch>::owning(new Foreign(object));
}

Outcome invoked(IDispatch* object, DISPID member, WORD kind, std::vector<VARIANT> arguments) {
    const std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{const_cast<VARIANT*>(reversed.data()), nullptr,
                          static_cast<UINT>(reversed.size()), 0};
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (puts) {
        parameters.rgdispidNamedArgs = &putName;
        parameters.cNamedArgs = 1;
    }
    Outcome outcome;
    UINT wrong = 0;
    outcome.result = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                    &outcome.value.get(), &outcome.info, &wrong);
    return outcome;
}

BoxCloser::BoxCloser() : thread_([this] { run(); }) {}

BoxCloser::~BoxCloser() {
    ended_ = true;
    if (thread_.joinable()) thread_.join();
}

std::vector<std::string> BoxCloser::texts() {
    ended_ = true;
    if (thread_.joinable()) thread_.join();
    return texts_;
}

void BoxCloser::run() {
    while (!ended_) {
        HWND box = nullptr;
        EnumWindows(findBox, reinterpret_cast<LPARAM>(&box));
        if (box != nullptr) {
            std::string whole = windowText(box) + "\n";
            EnumChildWindows(box, addText, reinterpret_cast<LPARAM>(&whole));
            texts_.push_back(whole);
            ++count_;
            PostMessageW(box, WM_COMMAND, IDOK, 0);
            while (IsWindow(box) != 0) Sleep(10);
        }
        Sleep(10);
    }
}

HRESULT canUnload() {
    return exported<HRESULT(WINAPI*)()>("DllCanUnloadNow")();
}

std::string boxOfAClosedConnection() {
    const auto component = createdComponent();
    DemoConnection connection;
    component->putref_Coneccion(connection.object().get());
    connection.object().call(L"Close");
    BoxCloser boxes;
    SHORT view = 5;
    LONG code = 0;
    BSTR none = nullptr;
    VARIANT_BOOL shown = VARIANT_TRUE;
    EXPECT_EQ(component->ActivarABM(&view, &code, &none, &shown), S_OK);
    EXPECT_EQ(shown, VARIANT_FALSE);
    const auto texts = boxes.texts();
    EXPECT_EQ(texts.size(), 1U);
    return texts.empty() ? std::string() : texts.front();
}

SettingsFile::SettingsFile(const std::string& content)
    : file_(system::configurationFolder() / "catalogador" / "catalogador.ini") {
    std::filesystem::create_directories(file_.parent_path());
    std::ofstream(file_) << content;
}

SettingsFile::~SettingsFile() {
    std::error_code ignored;
    std::filesystem::remove(file_, ignored);
}

std::string messageText(std::int32_t number) {
    constexpr std::int32_t offset = 1000;
    const com::AutomationObject texts = created(L"LNG_QTX_001.clsResources");
    const std::string text =
        toTextOrEmpty(com::variantOf(texts.call(L"resLoad", {number + offset}).get()), Regional{});
    return text.substr(0, text.find("[p]"));
}

VARIANT integer(SHORT value) {
    VARIANT made{};
    made.vt = VT_I2;
    made.iVal = value;
    return made;
}

VARIANT longInteger(LONG value) {
    VARIANT made{};
    made.vt = VT_I4;
    made.lVal = value;
    return made;
}

VARIANT text(const char* value) {
    VARIANT made{};
    made.vt = VT_BSTR;
    made.bstrVal = com::newText(value);
    return made;
}

VARIANT omitted() {
    VARIANT made{};
    made.vt = VT_ERROR;
    made.scode = DISP_E_PARAMNOTFOUND;
    return made;
}

}  // namespace catalogador::test
