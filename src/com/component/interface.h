#pragma once
#include "com/automation/com_api.h"
#include "com/automation/library.h"

namespace catalogador::com {

/// {7BF389A7-6F13-43D6-8C37-9DA81BF5566F}
constexpr GUID LIBID_Catalogador = {
    0x7bf389a7, 0x6f13, 0x43d6, {0x8c, 0x37, 0x9d, 0xa8, 0x1b, 0xf5, 0x56, 0x6f}};
/// {CEA37E58-D592-4D1D-AA59-EACCE1DF16B1}
constexpr IID IID__clsCatalogador = {
    0xcea37e58, 0xd592, 0x4d1d, {0xaa, 0x59, 0xea, 0xcc, 0xe1, 0xdf, 0x16, 0xb1}};
/// {592A528B-62D8-484D-BC6F-2ED557844700}
constexpr CLSID CLSID_clsCatalogador = {
    0x592a528b, 0x62d8, 0x484d, {0xbc, 0x6f, 0x2e, 0xd5, 0x57, 0x84, 0x47, 0x00}};

constexpr LCID typeLibraryLocale = 0x409;
constexpr LibraryTypes typeLibrary{LIBID_Catalogador, 1, 1, typeLibraryLocale};

/// Numbers of the members, in the order of their slots.
namespace member_id {
constexpr DISPID coneccion = 1;
constexpr DISPID empresa = 2;
constexpr DISPID appKey = 3;
constexpr DISPID idioma = 4;
constexpr DISPID idModificado = 5;
constexpr DISPID activarABM = 6;
constexpr DISPID addNew = 7;
}  // namespace member_id

/// The public class as compiled programs call it. Every pointer must be given; what the type
/// library calls optional, the calling language fills in.
struct _clsCatalogador : public IDispatch {
    virtual HRESULT STDMETHODCALLTYPE putref_Coneccion(IDispatch* connection) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Empresa(SHORT company) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_AppKey(BSTR key) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_Idioma(SHORT language) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_IDModificado(LONG* code) = 0;
    virtual HRESULT STDMETHODCALLTYPE ActivarABM(SHORT* ABM, LONG* IDValor, BSTR* Valor,
                                                 VARIANT_BOOL* result) = 0;
    virtual HRESULT STDMETHODCALLTYPE AddNew(SHORT* IDVista, BSTR* NombreVista, BSTR* Valor,
                                             BYTE* result) = 0;
};

}  // namespace catalogador::com
