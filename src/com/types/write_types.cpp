// Writes the type library of the component: write_types FILE [32]
#include <cstdio>
#include <string>
#include <vector>

#include "adapters/system/wide_text.h"
#include "com/automation/com_ptr.h"
#include "com/component/interface.h"

namespace catalogador::com {
namespace {

struct Failure {
    const char* step;
    HRESULT result;
};

void check(const char* step, HRESULT result) {
    if (FAILED(result)) throw Failure{step, result};
}

struct Parameter {
    const wchar_t* name;
    VARTYPE type;
    /// A pointer to the type rather than the type.
    bool byReference = false;
    USHORT flags = PARAMFLAG_FIN;
};

struct Member {
    const wchar_t* name;
    DISPID id;
    INVOKEKIND kind;
    std::vector<Parameter> parameters;
};

constexpr USHORT inAndOut = PARAMFLAG_FIN | PARAMFLAG_FOUT;
constexpr USHORT withDefault = inAndOut | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT;
constexpr USHORT returned = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;

const std::vector<Member>& members() {
    static const std::vector<Member> all{
        {L"Coneccion", member_id::coneccion, INVOKE_PROPERTYPUTREF, {{L"rhs", VT_DISPATCH}}},
        {L"Empresa", member_id::empresa, INVOKE_PROPERTYPUT, {{L"rhs", VT_I2}}},
        {L"AppKey", member_id::appKey, INVOKE_PROPERTYPUT, {{L"rhs", VT_BSTR}}},
        {L"Idioma", member_id::idioma, INVOKE_PROPERTYPUT, {{L"rhs", VT_I2}}},
        {L"IDModificado",
         member_id::idModificado,
         INVOKE_PROPERTYGET,
         {{L"result", VT_I4, true, returned}}},
        {L"ActivarABM",
         member_id::activarABM,
         INVOKE_FUNC,
         {{L"ABM", VT_I2, true, inAndOut},
          {L"IDValor", VT_I4, true, withDefault},
          {L"Valor", VT_BSTR, true, withDefault},
          {L"result", VT_BOOL, true, returned}}},
        {L"AddNew",
         member_id::addNew,
         INVOKE_FUNC,
         {{L"IDVista", VT_I2, true, inAndOut},
          {L"NombreVista", VT_BSTR, true, inAndOut},
          {L"Valor", VT_BSTR, true, inAndOut},
          {L"result", VT_UI1, true, returned}}},
    };
    return all;
}

/// The descriptions that a function's description refers to, in one place.
struct Description {
    explicit Description(const Member& member)
        : pointed(member.parameters.size()),
          defaults(member.parameters.size()),
          elements(member.parameters.size()) {
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const Parameter& parameter = member.parameters[i];
            TYPEDESC& type = elements[i].tdesc;
            type.vt = parameter.type;
            if (parameter.byReference) {
                pointed[i].vt = parameter.type;
                type.vt = VT_PTR;
                type.lptdesc = &pointed[i];
            }
            elements[i].paramdesc.wParamFlags = parameter.flags;
            if ((parameter.flags & PARAMFLAG_FHASDEFAULT) != 0) addDefault(i, parameter.type);
        }
        function.memid = member.id;
        function.funckind = FUNC_PUREVIRTUAL;
        function.invkind = member.kind;
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<SHORT>(elements.size());
        function.lprgelemdescParam = elements.data();
        function.elemdescFunc.tdesc.vt = VT_HRESULT;
    }
    void addDefault(std::size_t i, VARTYPE type) {
        defaults[i].cBytes = sizeof(PARAMDESCEX);
        VARIANT& value = defaults[i].varDefaultValue;
        value.vt = type;
        if (type == VT_BSTR)
            value.bstrVal = SysAllocString(L"");
        else
            value.lVal = 0;
        elements[i].paramdesc.pparamdescex = &defaults[i];
    }

    std::vector<TYPEDESC> pointed;
    std::vector<PARAMDESCEX> defaults;
    std::vector<ELEMDESC> elements;
    FUNCDESC function{};
};

void addMember(ICreateTypeInfo& type, UINT index, const Member& member) {
    Description description(member);
    check("AddFuncDesc", type.AddFuncDesc(index, &description.function));
    std::vector<std::wstring> texts{member.name};
    // The value of a property has no name of its own.
    const bool property = member.kind != INVOKE_FUNC;
    for (const Parameter& parameter : member.parameters)
        if (!property && (parameter.flags & PARAMFLAG_FRETVAL) == 0)
            texts.emplace_back(parameter.name);
    std::vector<wchar_t*> names;
    for (std::wstring& text : texts) names.push_back(text.data());
    check("SetFuncAndParamNames",
          type.SetFuncAndParamNames(index, names.data(), static_cast<UINT>(names.size())));
}

ComPtr<ICreateTypeInfo> addInterface(ICreateTypeLib2& library) {
    ComPtr<ICreateTypeInfo> type;
    std::wstring name = L"_clsCatalogador";
    check("CreateTypeInfo", library.CreateTypeInfo(name.data(), TKIND_INTERFACE, type.put()));
    check("SetGuid", type->SetGuid(IID__clsCatalogador));
    ComPtr<ITypeLib> standard;
    check("LoadRegTypeLib", LoadRegTypeLib(IID_StdOle, 2, 0, 0, standard.put()));
    ComPtr<ITypeInfo> dispatch;
    check("GetTypeInfoOfGuid", standard->GetTypeInfoOfGuid(IID_IDispatch, dispatch.put()));
    HREFTYPE base = 0;
    check("AddRefTypeInfo", type->AddRefTypeInfo(dispatch.get(), &base));
    check("AddImplType", type->AddImplType(0, base));
    check("SetTypeFlags", type->SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION |
                                             TYPEFLAG_FHIDDEN | TYPEFLAG_FNONEXTENSIBLE));
    UINT index = 0;
    for (const Member& member : members()) addMember(*type.get(), index++, member);
    check("LayOut", type->LayOut());
    return type;
}

void addClass(ICreateTypeLib2& library, ICreateTypeInfo& interfaceType) {
    ComPtr<ICreateTypeInfo> type;
    std::wstring name = L"clsCatalogador";
    check("CreateTypeInfo", library.CreateTypeInfo(name.data(), TKIND_COCLASS, type.put()));
    check("SetGuid", type->SetGuid(CLSID_clsCatalogador));
    check("SetTypeFlags", type->SetTypeFlags(TYPEFLAG_FCANCREATE));
    ComPtr<ITypeInfo> implemented;
    check("QueryInterface", interfaceType.QueryInterface(IID_ITypeInfo, implemented.putVoid()));
    HREFTYPE reference = 0;
    check("AddRefTypeInfo", type->AddRefTypeInfo(implemented.get(), &reference));
    check("AddImplType", type->AddImplType(0, reference));
    check("SetImplTypeFlags", type->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT));
    check("LayOut", type->LayOut());
}

void writeLibrary(const std::wstring& file, SYSKIND system) {
    ComPtr<ICreateTypeLib2> library;
    check("CreateTypeLib2", CreateTypeLib2(system, file.c_str(), library.put()));
    std::wstring name = L"Catalogador";
    std::wstring help = L"VEM -  Catalogador";
    check("SetName", library->SetName(name.data()));
    check("SetGuid", library->SetGuid(typeLibrary.id));
    check("SetVersion", library->SetVersion(typeLibrary.major, typeLibrary.minor));
    check("SetLcid", library->SetLcid(typeLibrary.locale));
    check("SetDocString", library->SetDocString(help.data()));
    const auto type = addInterface(*library.get());
    addClass(*library.get(), *type.get());
    check("SaveAllChanges", library->SaveAllChanges());
}

}  // namespace
}  // namespace catalogador::com

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    CoInitialize(nullptr);
    try {
        const bool is32 = argc > 2 && std::string(argv[2]) == "32";
        catalogador::com::writeLibrary(catalogador::system::wideOf(argv[1]),
                                       is32 ? SYS_WIN32 : SYS_WIN64);
        return 0;
    } catch (const catalogador::com::Failure& failure) {
        std::fprintf(stderr, "write_types: %s: %08lx\n", failure.step,
                     static_cast<unsigned long>(failure.result));
        return 1;
    }
}
