#include "adapters/system/wide_text.h"
#include "com/automation/com_api.h"
#include "com/automation/late_bound_object.h"
#include "host_process.h"
#include "hosted.h"
#include "runtime/convert.h"

namespace catalogador::test {
namespace {

using namespace com::member_id;

class Component : public testing::Test {
  protected:
    Component() : component_(createdComponent()) {}
    ~Component() override {
        for (const VARIANT& value : given_) VariantClear(const_cast<VARIANT*>(&value));
    }

    VARIANT keep(VARIANT value) {
        given_.push_back(value);
        return value;
    }
    VARIANT textArgument(const char* value) { return keep(text(value)); }
    Outcome call(DISPID member, WORD kind, std::vector<VARIANT> arguments = {}) {
        return invoked(component_.get(), member, kind, std::move(arguments));
    }
    int addNew(SHORT view, const char* sequence, const char* value) {
        const Outcome outcome = call(com::member_id::addNew, DISPATCH_METHOD,
                                     {integer(view), textArgument(sequence), textArgument(value)});
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.get().vt, VT_UI1);
        return outcome.value.get().bVal;
    }
    void connect(IDispatch* connection, const char* key = "VEM04") {
        EXPECT_EQ(component_->putref_Coneccion(connection), S_OK);
        EXPECT_EQ(component_->put_Empresa(1), S_OK);
        BSTR made = com::newText(key);
        EXPECT_EQ(component_->put_AppKey(made), S_OK);
        SysFreeString(made);
        EXPECT_EQ(component_->put_Idioma(1), S_OK);
    }
    LONG lastCode() {
        LONG code = -5;
        EXPECT_EQ(component_->get_IDModificado(&code), S_OK);
        return code;
    }

    Apartment apartment_;
    com::ComPtr<com::_clsCatalogador> component_;
    std::vector<VARIANT> given_;
};

TEST_F(Component, CountsItsReferencesToTheLastRelease) {
    EXPECT_EQ(component_->AddRef(), 2U);
    EXPECT_EQ(component_->Release(), 1U);
    com::ComPtr<ISupportErrorInfo> errors;
    ASSERT_EQ(component_->QueryInterface(IID_ISupportErrorInfo, errors.putVoid()), S_OK);
    EXPECT_EQ(component_->AddRef(), 3U);
    EXPECT_EQ(component_->Release(), 2U);
    com::ComPtr<IUnknown> one;
    com::ComPtr<IUnknown> other;
    errors->QueryInterface(IID_IUnknown, one.putVoid());
    component_->QueryInterface(IID_IUnknown, other.putVoid());
    EXPECT_EQ(one.get(), other.get());
    one.reset();
    other.reset();
    errors.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    EXPECT_EQ(component_->AddRef(), 2U);
    EXPECT_EQ(component_->Release(), 1U);
    component_.reset();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(Component, GivesNoInterfaceThatItLacksAndTakesNoNullPointer) {
    void* object = this;
    EXPECT_EQ(component_->QueryInterface(IID_IPersist, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(component_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    SHORT view = 0;
    LONG code = 0;
    BSTR none = nullptr;
    VARIANT_BOOL shown = VARIANT_TRUE;
    BYTE result = 5;
    EXPECT_EQ(component_->get_IDModificado(nullptr), E_POINTER);
    EXPECT_EQ(component_->ActivarABM(nullptr, &code, &none, &shown), E_POINTER);
    EXPECT_EQ(shown, VARIANT_FALSE);
    EXPECT_EQ(component_->ActivarABM(&view, nullptr, &none, &shown), E_POINTER);
    EXPECT_EQ(component_->ActivarABM(&view, &code, nullptr, &shown), E_POINTER);
    EXPECT_EQ(component_->ActivarABM(&view, &code, &none, nullptr), E_POINTER);
    EXPECT_EQ(component_->AddNew(nullptr, &none, &none, &result), E_POINTER);
    EXPECT_EQ(component_->AddNew(&view, nullptr, &none, &result), E_POINTER);
    EXPECT_EQ(component_->AddNew(&view, &none, nullptr, &result), E_POINTER);
    EXPECT_EQ(component_->AddNew(&view, &none, &none, nullptr), E_POINTER);
    EXPECT_EQ(component_->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(component_->GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(component_->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
    EXPECT_EQ(component_->Invoke(coneccion, IID_NULL, 0, DISPATCH_PROPERTYPUTREF, nullptr, nullptr,
                                 nullptr, nullptr),
              E_POINTER);
    // The texts of automation may be null: they are empty.
    EXPECT_EQ(component_->put_AppKey(nullptr), S_OK);
    EXPECT_EQ(component_->AddNew(&view, &none, &none, &result), S_OK);
    EXPECT_EQ(result, 9);
}

TEST_F(Component, IsFoundByTheNamesOfItsMembersInAnyCase) {
    const com::AutomationObject object(com::ComPtr<IDispatch>::sharing(component_.get()));
    EXPECT_EQ(object.idOf(L"coneccion"), coneccion);
    EXPECT_EQ(object.idOf(L"EMPRESA"), empresa);
    EXPECT_EQ(object.idOf(L"AppKey"), com::member_id::appKey);
    EXPECT_EQ(object.idOf(L"Idioma"), idioma);
    EXPECT_EQ(object.idOf(L"IDModificado"), idModificado);
    EXPECT_EQ(object.idOf(L"ActivarABM"), activarABM);
    EXPECT_EQ(object.idOf(L"AddNew"), com::member_id::addNew);
    EXPECT_FALSE(object.has(L"Remove"));
    UINT count = 0;
    EXPECT_EQ(component_->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    com::ComPtr<ITypeInfo> type;
    EXPECT_EQ(component_->GetTypeInfo(0, 0, type.put()), S_OK);
    EXPECT_EQ(component_->GetTypeInfo(1, 0, type.put()), DISP_E_BADINDEX);
}

TEST_F(Component, ArgumentsOfTheWrongTypeAreErrors) {
    VARIANT object{};
    object.vt = VT_DISPATCH;
    object.pdispVal = component_.get();
    VARIANT array{};
    array.vt = VT_ARRAY | VT_I2;
    const std::vector<VARIANT> noNumbers{textArgument("x"), object, array, longInteger(40000)};
    for (const VARIANT& wrong : noNumbers) {
        for (const DISPID member : {empresa, idioma})
            EXPECT_TRUE(FAILED(call(member, DISPATCH_PROPERTYPUT, {wrong}).result)) << wrong.vt;
        EXPECT_TRUE(FAILED(call(activarABM, DISPATCH_METHOD, {wrong}).result)) << wrong.vt;
        EXPECT_TRUE(FAILED(call(com::member_id::addNew, DISPATCH_METHOD,
                                {wrong, textArgument("a"), textArgument("b")})
                               .result))
            << wrong.vt;
    }
    EXPECT_EQ(call(empresa, DISPATCH_PROPERTYPUT, {longInteger(40000)}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(call(empresa, DISPATCH_PROPERTYPUT, {textArgument("x")}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(com::member_id::appKey, DISPATCH_PROPERTYPUT, {object}).result,
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(coneccion, DISPATCH_PROPERTYPUTREF, {integer(1)}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {integer(0), textArgument("x")}).result,
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {integer(0), integer(0), object}).result,
              DISP_E_TYPEMISMATCH);
    // An object without the members of a connection is none.
    const Outcome noConnection = call(coneccion, DISPATCH_PROPERTYPUTREF, {object});
    EXPECT_EQ(noConnection.result, DISP_E_EXCEPTION);
    EXPECT_EQ(noConnection.info.scode, com::resultOf(error_number::typeMismatch));
    EXPECT_EQ(component_->putref_Coneccion(component_.get()),
              com::resultOf(error_number::typeMismatch));
    com::ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
    BSTR description = nullptr;
    info->GetDescription(&description);
    EXPECT_NE(com::textOf(description).find("OpenResultset"), std::string::npos);
    SysFreeString(description);
}

TEST_F(Component, ArgumentsThatAreMissingOrTooManyAreErrors) {
    for (const DISPID member : {empresa, com::member_id::appKey, idioma}) {
        EXPECT_EQ(call(member, DISPATCH_PROPERTYPUT).result, DISP_E_BADPARAMCOUNT);
        EXPECT_EQ(call(member, DISPATCH_PROPERTYPUT, {omitted()}).result, DISP_E_PARAMNOTOPTIONAL);
        EXPECT_EQ(call(member, DISPATCH_PROPERTYGET).result, DISP_E_MEMBERNOTFOUND);
    }
    EXPECT_EQ(call(idModificado, DISPATCH_PROPERTYGET, {integer(1)}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(idModificado, DISPATCH_PROPERTYPUT, {integer(1)}).result, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {omitted()}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(
        call(activarABM, DISPATCH_METHOD, {integer(0), integer(0), textArgument(""), integer(1)})
            .result,
        DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(com::member_id::addNew, DISPATCH_METHOD, {integer(1)}).result,
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(
        call(com::member_id::addNew, DISPATCH_METHOD, {integer(1), omitted(), textArgument("b")})
            .result,
        DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call(99, DISPATCH_METHOD).result, DISP_E_MEMBERNOTFOUND);
}

TEST_F(Component, WithoutAViewOrAConnectionNothingIsShown) {
    DemoConnection connection;
    for (const auto& arguments : std::vector<std::vector<VARIANT>>{
             {integer(1)},
             {integer(1), omitted(), omitted()},
             {integer(1), longInteger(0)},
             {integer(1), longInteger(0), textArgument("x")},
         }) {
        const Outcome outcome = call(activarABM, DISPATCH_METHOD, arguments);
        EXPECT_EQ(outcome.result, S_OK);
        EXPECT_EQ(outcome.value.get().vt, VT_BOOL);
        EXPECT_EQ(outcome.value.get().boolVal, VARIANT_FALSE);
    }
    connect(connection.object().get());
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {integer(0)}).value.get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {integer(-3)}).value.get().boolVal, VARIANT_FALSE);
    EXPECT_EQ(lastCode(), 0);
}

TEST_F(Component, ArgumentsMayBeGivenByName) {
    SHORT view = 0;
    VARIANT byReference{};
    byReference.vt = VT_BYREF | VT_I2;
    byReference.piVal = &view;
    VARIANT arguments[] = {keep(text("x")), byReference};
    DISPID names[] = {2, 0};
    DISPPARAMS parameters{arguments, names, 2, 2};
    VARIANT result{};
    EXPECT_EQ(component_->Invoke(activarABM, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result,
                                 nullptr, nullptr),
              S_OK);
    EXPECT_EQ(result.boolVal, VARIANT_FALSE);
    names[0] = 7;
    EXPECT_EQ(component_->Invoke(activarABM, IID_NULL, 0, DISPATCH_METHOD, &parameters, &result,
                                 nullptr, nullptr),
              DISP_E_PARAMNOTFOUND);
}

/// Of our own kind, and of one that is driven by its members' names.
class AddingCodes : public Component, public testing::WithParamInterface<bool> {};

TEST_P(AddingCodes, GivesEveryResult) {
    DemoConnection connection;
    const auto foreign = asForeign(connection.object().get());
    EXPECT_EQ(addNew(5, "genCodigoTexto5", "Ñandú's"), 9);
    connect(GetParam() ? connection.object().get() : foreign.get(), "");
    EXPECT_EQ(addNew(5, "genCodigoTexto5", "Ñandú's"), 9) << "without an application key";
    connect(GetParam() ? connection.object().get() : foreign.get());
    EXPECT_EQ(addNew(0, "genCodigoTexto5", "Ñandú's"), 9);
    EXPECT_EQ(addNew(5, "", "Ñandú's"), 9);
    EXPECT_EQ(addNew(5, "genCodigoTexto5", ""), 9);
    const std::string sequence = "Escrituras";
    EXPECT_EQ(addNew(5, sequence.c_str(), "Ñandú's"), 1);
    const LONG code = lastCode();
    EXPECT_GT(code, 0);
    EXPECT_EQ(connection.value("Select CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = 5 "
                               "And CTeCodigo = " +
                               std::to_string(code)),
              Variant("Ñandú's"));
    EXPECT_EQ(addNew(5, sequence.c_str(), "Ñandú's"), 0) << "it is there already";
    EXPECT_EQ(addNew(5, "no such sequence", "Other"), 0);
    EXPECT_EQ(lastCode(), code);
    EXPECT_EQ(component_->putref_Coneccion(nullptr), S_OK);
    EXPECT_EQ(addNew(5, sequence.c_str(), "Other"), 9);
}
INSTANTIATE_TEST_SUITE_P(Connections, AddingCodes, testing::Bool(), [](const auto& kind) {
    return kind.param ? "OfThisProject" : "OfAnother";
});

TEST_F(Component, ErrorsOfAConnectionAreShownAndLeaveTheResult) {
    DemoConnection connection;
    connect(connection.object().get());
    connection.object().call(L"Close");
    BoxCloser boxes;
    EXPECT_EQ(addNew(5, "genCodigoTexto5", "x"), 9);
    EXPECT_EQ(call(activarABM, DISPATCH_METHOD, {integer(5)}).value.get().boolVal, VARIANT_FALSE);
    const auto texts = boxes.texts();
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_NE(texts[0].find("The connection is not open"), std::string::npos) << texts[0];
    EXPECT_NE(texts[0].find("Aceptar"), std::string::npos) << texts[0];
}

TEST(ClassObject, IsGivenForTheOneClassAndMakesNoPartsOfOthers) {
    const Apartment apartment;
    const auto get = exported<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    com::ComPtr<IClassFactory> factory;
    EXPECT_EQ(get(IID_NULL, IID_IClassFactory, factory.putVoid()), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(get(com::CLSID_clsCatalogador, IID_IClassFactory, nullptr), E_POINTER);
    ASSERT_EQ(get(com::CLSID_clsCatalogador, IID_IClassFactory, factory.putVoid()), S_OK);
    EXPECT_EQ(canUnload(), S_FALSE);
    com::ComPtr<IUnknown> object;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, object.putVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, object.putVoid()), E_NOINTERFACE);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    ASSERT_EQ(get(com::CLSID_clsCatalogador, IID_IClassFactory, factory.putVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    factory.reset();
    EXPECT_EQ(canUnload(), S_OK);
}

}  // namespace
}  // namespace catalogador::test
