#include <array>
#include <iostream>

#include "adapters/system/wide_text.h"
#include "com/automation/com_api.h"
#include "com/automation/late_bound_object.h"
#include "host_process.h"
#include "hosted.h"

namespace catalogador::test {
namespace {

struct Usage {
    std::size_t memory;
    ULONG_PTR handle;
};

/// Bytes that are in use on the heaps of this process.
std::size_t memoryInUse() {
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t used = 0;
    for (const HANDLE heap : heaps) {
        HeapLock(heap);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry) != 0)
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) used += entry.cbData;
        HeapUnlock(heap);
    }
    return used;
}

/// The number that the system gives out next: it takes the lowest that is free.
ULONG_PTR nextHandle() {
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(event);
    return reinterpret_cast<ULONG_PTR>(event);
}

TEST(Creation, GivesTheBoxesTheLanguageOfTheTextsBeforeTheFirstScreen) {
    const Apartment apartment;
    EXPECT_NE(boxOfAClosedConnection().find("Aceptar"), std::string::npos);
    {
        const SettingsFile english("[VEM04]\nIdioma=2\n");
        EXPECT_EQ(boxOfAClosedConnection().find("Aceptar"), std::string::npos);
    }
    EXPECT_NE(boxOfAClosedConnection().find("Aceptar"), std::string::npos);
}

/// The text in a key of the registered classes; empty where there is none.
std::wstring classIdAt(const wchar_t* key) {
    std::array<wchar_t, 100> text{};
    DWORD size = sizeof text;
    const LSTATUS result =
        RegGetValueW(HKEY_CLASSES_ROOT, key, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return result == ERROR_SUCCESS ? text.data() : std::wstring();
}

void setClassIdAt(const wchar_t* key, const std::wstring& classId) {
    EXPECT_EQ(RegSetKeyValueW(HKEY_CLASSES_ROOT, key, L"", REG_SZ, classId.c_str(),
                              static_cast<DWORD>(2 * (classId.size() + 1))),
              ERROR_SUCCESS);
}

/// A language library of another maker: it has no text, and keeps what it is told.
class WordlessLibrary : public com::LateBoundObject {
  public:
    static inline VARTYPE secondaryType = VT_EMPTY;
    static inline int secondary = -1;

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                     UINT* wrong) override {
        if (member == 2) {
            secondaryType = parameters->rgvarg[0].vt;
            secondary = parameters->rgvarg[0].bVal;
        }
        return com::LateBoundObject::Invoke(member, iid, locale, kind, parameters, result, info,
                                            wrong);
    }

  protected:
    [[nodiscard]] const std::vector<com::LateBoundMember>& members() const override {
        static const std::vector<com::LateBoundMember> all{{L"IDAppName", 1}, {L"IDSLng", 2}};
        return all;
    }
    [[nodiscard]] std::string sourceName() const override { return "Wordless"; }
    com::AutomationValue invoke(DISPID, const com::Arguments&) override { return {}; }
};

class WordlessFactory : public IClassFactory {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        const auto library = com::ComPtr<IDispatch>::owning(new WordlessLibrary);
        return library->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

TEST(Creation, TakesALanguageLibraryWithoutTexts) {
    const Apartment apartment;
    const CLSID wordless = {
        0x2f4c9d1e, 0x5b7a, 0x4c3d, {0x9e, 0x11, 0x30, 0x42, 0x71, 0x5a, 0x6b, 0x7c}};
    const wchar_t* key = L"LNG_QTX_009.clsResources";
    const std::wstring classId = L"{2F4C9D1E-5B7A-4C3D-9E11-3042715A6B7C}";
    setClassIdAt((std::wstring(key) + L"\\CLSID").c_str(), classId);
    WordlessFactory factory;
    DWORD registration = 0;
    ASSERT_EQ(CoRegisterClassObject(wordless, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                    &registration),
              S_OK);
    {
        const SettingsFile settings("[VEM04]\nIdioma=9\nIdioma2=200\n");
        {
            BoxCloser boxes;
            createdComponent();
            EXPECT_EQ(boxes.texts(), std::vector<std::string>());
        }
        EXPECT_EQ(WordlessLibrary::secondaryType, VT_UI1);
        EXPECT_EQ(WordlessLibrary::secondary, 200);
        const std::string box = boxOfAClosedConnection();
        EXPECT_NE(box.find("RNF 500"), std::string::npos) << box;
    }
    CoRevokeClassObject(registration);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, key);
}

TEST(Creation, AThousandObjectsLeaveNothingBehind) {
    const Apartment apartment;
    DemoConnection connection;
    const auto usage = [] { return Usage{memoryInUse(), nextHandle()}; };
    const auto rounds = [&](int count) {
        for (int round = 0; round < count; ++round) {
            const auto component = createdComponent();
            component->putref_Coneccion(connection.object().get());
            BSTR key = com::newText("VEM04");
            component->put_AppKey(key);
            SysFreeString(key);
            SHORT view = 0;
            LONG code = 0;
            BSTR none = nullptr;
            VARIANT_BOOL shown = VARIANT_TRUE;
            ASSERT_EQ(component->ActivarABM(&view, &code, &none, &shown), S_OK);
            SHORT target = 1;
            BSTR sequence = com::newText("x");
            BSTR known = com::newText("AD");
            BYTE result = 9;
            ASSERT_EQ(component->AddNew(&target, &sequence, &known, &result), S_OK);
            ASSERT_EQ(result, 0);
            SysFreeString(sequence);
            SysFreeString(known);
        }
    };
    rounds(200);
    const auto before = usage();
    rounds(1000);
    const auto after = usage();
    EXPECT_EQ(canUnload(), S_OK);
    constexpr std::size_t slack = 64 * 1024;
    constexpr ULONG_PTR handles = 10 * sizeof(ULONG);
    EXPECT_GT(before.memory, 0U);
    EXPECT_LE(after.memory, before.memory + slack);
    EXPECT_LE(after.handle, before.handle + handles);
    std::cout << "memory " << before.memory << " -> " << after.memory << ", handle "
              << before.handle << " -> " << after.handle << "\n";
}

TEST(Creation, ASecondApartmentHasObjectsOfItsOwn) {
    const Apartment apartment;
    const auto here = createdComponent();
    std::thread([] {
        const Apartment other;
        const auto there = createdComponent();
        SHORT view = 0;
        LONG code = 0;
        BSTR none = nullptr;
        VARIANT_BOOL shown = VARIANT_TRUE;
        EXPECT_EQ(there->ActivarABM(&view, &code, &none, &shown), S_OK);
    }).join();
    LONG code = -1;
    EXPECT_EQ(here->get_IDModificado(&code), S_OK);
    EXPECT_EQ(code, 0);
}

TEST(Creation, IsRefusedWithTheStatedErrorWhenTheTextsAreMissing) {
    const Apartment apartment;
    const wchar_t* key = L"LNG_QTX_001.clsResources\\CLSID";
    const std::wstring library = classIdAt(key);
    ASSERT_FALSE(library.empty());
    setClassIdAt(key, L"{00000000-0000-0000-0000-000000000001}");
    BoxCloser boxes;
    com::ComPtr<com::_clsCatalogador> component;
    const HRESULT result =
        CoCreateInstance(com::CLSID_clsCatalogador, nullptr, CLSCTX_INPROC_SERVER,
                         com::IID__clsCatalogador, component.putVoid());
    com::ComPtr<IErrorInfo> info;
    const HRESULT told = GetErrorInfo(0, info.put());
    setClassIdAt(key, library);
    EXPECT_EQ(result, com::resultOf(9000));
    EXPECT_FALSE(component);
    ASSERT_EQ(told, S_OK);
    BSTR source = nullptr;
    BSTR description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    EXPECT_EQ(com::textOf(source), "ObjetoLenguaje");
    EXPECT_EQ(com::textOf(description), "Falta componente de lenguaje.");
    SysFreeString(source);
    SysFreeString(description);
    const auto texts = boxes.texts();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_NE(texts[0].find("Falta el componente de idioma: LNG_QTX_001.dll"), std::string::npos)
        << texts[0];
    EXPECT_NE(texts[0].find("Se finalizará la ejecución de la aplicación."), std::string::npos);
    EXPECT_EQ(canUnload(), S_OK);
}

TEST(Creation, LeavesTheHostsProcessAsItWas) {
    const Apartment apartment;
    const ProcessSettings before = processSettings();
    createdComponent();
    EXPECT_EQ(processSettings(), before);
}

}  // namespace
}  // namespace catalogador::test
