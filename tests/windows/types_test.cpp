#include <gtest/gtest.h>

#include <sstream>

#include "com/automation/automation_values.h"
#include "com/automation/com_ptr.h"
#include "com/component/interface.h"

namespace catalogador {
namespace {

std::string typeText(const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR:
            return typeText(*type.lptdesc) + "*";
        case VT_I2:
            return "short";
        case VT_I4:
            return "long";
        case VT_UI1:
            return "byte";
        case VT_BSTR:
            return "text";
        case VT_BOOL:
            return "boolean";
        case VT_DISPATCH:
            return "object";
        case VT_HRESULT:
            return "result";
        case VT_VOID:
            return "void";
        default:
            return "type " + std::to_string(type.vt);
    }
}

std::string kindText(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET:
            return "get ";
        case INVOKE_PROPERTYPUT:
            return "put ";
        case INVOKE_PROPERTYPUTREF:
            return "putref ";
        default:
            return "";
    }
}

std::string parameterText(const ELEMDESC& parameter, BSTR name) {
    std::string all;
    const USHORT flags = parameter.paramdesc.wParamFlags;
    if ((flags & PARAMFLAG_FOPT) != 0) all += "optional ";
    if ((flags & PARAMFLAG_FIN) != 0) all += "in ";
    if ((flags & PARAMFLAG_FOUT) != 0) all += "out ";
    if ((flags & PARAMFLAG_FRETVAL) != 0) all += "retval ";
    all += typeText(parameter.tdesc);
    if (name != nullptr) all += " " + com::textOf(name);
    if ((flags & PARAMFLAG_FHASDEFAULT) != 0) {
        const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
        all += value.vt == VT_BSTR ? " = \"" + com::textOf(value.bstrVal) + "\""
                                   : " = " + std::to_string(value.lVal);
    }
    return all;
}

/// "slot number kind name(parameters)" of each member that is not IDispatch's.
std::vector<std::string> membersOf(ITypeInfo* type) {
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(type->GetTypeAttr(&attributes), S_OK);
    std::vector<std::string> members;
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(type->GetFuncDesc(index, &function), S_OK);
        BSTR names[8] = {};
        UINT count = 0;
        type->GetNames(function->memid, names, 8, &count);
        std::ostringstream line;
        line << function->oVft / static_cast<SHORT>(sizeof(void*)) << " " << function->memid << " "
             << kindText(function->invkind) << com::textOf(names[0]) << "(";
        for (SHORT i = 0; i < function->cParams; ++i)
            line << (i == 0 ? "" : ", ")
                 << parameterText(function->lprgelemdescParam[i],
                                  static_cast<UINT>(i) + 1 < count ? names[i + 1] : nullptr);
        line << ") " << typeText(function->elemdescFunc.tdesc);
        members.push_back(line.str());
        for (UINT i = 0; i < count; ++i) SysFreeString(names[i]);
        type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
    return members;
}

class TypeLibrary : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(LoadTypeLibEx(L"vemCatalogador.dll", REGKIND_NONE, library_.put()), S_OK);
    }
    com::ComPtr<ITypeLib> library_;
};

TEST_F(TypeLibrary, IsNamedAndNumberedAsHostsExpectIt) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, com::LIBID_Catalogador);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 1);
    EXPECT_EQ(attributes->lcid, 0x409U);
    library_->ReleaseTLibAttr(attributes);
    BSTR name = nullptr;
    BSTR help = nullptr;
    ASSERT_EQ(library_->GetDocumentation(-1, &name, &help, nullptr, nullptr), S_OK);
    EXPECT_EQ(com::textOf(name), "Catalogador");
    EXPECT_EQ(com::textOf(help), "VEM -  Catalogador");
    SysFreeString(name);
    SysFreeString(help);
}

TEST_F(TypeLibrary, HasOneCreatableClassWithTheInterfaceAsItsDefault) {
    com::ComPtr<ITypeInfo> type;
    ASSERT_EQ(library_->GetTypeInfoOfGuid(com::CLSID_clsCatalogador, type.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(attributes->cImplTypes, 1);
    type->ReleaseTypeAttr(attributes);
    INT flags = 0;
    ASSERT_EQ(type->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    HREFTYPE reference = 0;
    com::ComPtr<ITypeInfo> implemented;
    ASSERT_EQ(type->GetRefTypeOfImplType(0, &reference), S_OK);
    ASSERT_EQ(type->GetRefTypeInfo(reference, implemented.put()), S_OK);
    ASSERT_EQ(implemented->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, com::IID__clsCatalogador);
    implemented->ReleaseTypeAttr(attributes);
}

TEST_F(TypeLibrary, DescribesTheMembersInTheirSlots) {
    com::ComPtr<ITypeInfo> dispatch;
    ASSERT_EQ(library_->GetTypeInfoOfGuid(com::IID__clsCatalogador, dispatch.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(dispatch->GetTypeAttr(&attributes), S_OK);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FDUAL, 0);
    const bool isDispatch = attributes->typekind == TKIND_DISPATCH;
    dispatch->ReleaseTypeAttr(attributes);
    // The other half of a dual interface is the table that compiled programs call.
    com::ComPtr<ITypeInfo> table = dispatch;
    if (isDispatch) {
        HREFTYPE reference = 0;
        ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
        ASSERT_EQ(dispatch->GetRefTypeInfo(reference, table.put()), S_OK);
    }
    const std::vector<std::string> expected{
        "7 1 putref Coneccion(in object) result",
        "8 2 put Empresa(in short) result",
        "9 3 put AppKey(in text) result",
        "10 4 put Idioma(in short) result",
        "11 5 get IDModificado(out retval long*) result",
        "12 6 ActivarABM(in out short* ABM, optional in out long* IDValor = 0, "
        "optional in out text* Valor = \"\", out retval boolean*) result",
        "13 7 AddNew(in out short* IDVista, in out text* NombreVista, in out text* Valor, "
        "out retval byte*) result",
    };
    EXPECT_EQ(membersOf(table.get()), expected);
}

}  // namespace
}  // namespace catalogador
