#pragma once
#include <atomic>
#include <memory>
#include <string>

#include "com/automation/arguments.h"
#include "com/automation/library.h"
#include "com/component/component_host.h"
#include "com/component/host_connection.h"
#include "com/component/interface.h"
#include "component/clsCatalogador.h"

namespace catalogador::com {

/// The public class as the platform's programs see it, compiled ones and those that call by name.
class CatalogadorObject : public _clsCatalogador, public ISupportErrorInfo {
  public:
    /// Raises RuntimeError (languageMissing) when the language library is missing.
    CatalogadorObject();
    virtual ~CatalogadorObject();
    CatalogadorObject(const CatalogadorObject&) = delete;
    CatalogadorObject& operator=(const CatalogadorObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD kind,
                                     DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                                     UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE putref_Coneccion(IDispatch* connection) override;
    HRESULT STDMETHODCALLTYPE put_Empresa(SHORT company) override;
    HRESULT STDMETHODCALLTYPE put_AppKey(BSTR key) override;
    HRESULT STDMETHODCALLTYPE put_Idioma(SHORT language) override;
    HRESULT STDMETHODCALLTYPE get_IDModificado(LONG* code) override;
    HRESULT STDMETHODCALLTYPE ActivarABM(SHORT* ABM, LONG* IDValor, BSTR* Valor,
                                         VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE AddNew(SHORT* IDVista, BSTR* NombreVista, BSTR* Valor,
                                     BYTE* result) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

  private:
    void setConnection(IDispatch* connection);
    bool activate(SHORT view, LONG code, const std::string& text);
    std::uint8_t add(SHORT view, const std::string& sequence, const std::string& text);
    /// Carries out a call by name. Raises RuntimeError or CallError.
    void callMember(DISPID member, WORD kind, const Arguments& arguments, VARIANT& result);

    /// Runs a call of a compiled program; what it raises becomes its error.
    template <class Body>
    HRESULT guarded(Body&& body);

    std::atomic<long> references_ = 1;
    CountedObject counted_;
    ComponentHost host_;
    clsCatalogador component_;
    HostConnection connection_;
};

/// Description of the interface, from the type library that is part of this library.
HRESULT interfaceDescription(ITypeInfo** info);

}  // namespace catalogador::com
