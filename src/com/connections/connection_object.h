#pragma once
#include <memory>

#include "adapters/odbc/odbc_connection.h"
#include "com/automation/late_bound_object.h"
#include "com/connection_sharing.h"

namespace catalogador::com {

/// {CD1193C1-341F-4FDB-A88C-44C63893EEE4}
constexpr CLSID CLSID_rdoConnection = {
    0xcd1193c1, 0x341f, 0x4fdb, {0xa8, 0x8c, 0x44, 0xc6, 0x38, 0x93, 0xee, 0xe4}};

/// A connection that a script or any other host creates, opens with a connection string (of ODBC,
/// or of a SQLite file, which needs no driver) and hands over: Connect, EstablishConnection,
/// OpenResultset, Execute, RowsAffected, Close.
class ConnectionObject : public LateBoundObject, public IConnectionSharing {
  public:
    ConnectionObject() = default;
    /// On a connection that is open already.
    explicit ConnectionObject(std::shared_ptr<odbc::OdbcConnection> connection)
        : connection_(connection), odbc_(std::move(connection)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return LateBoundObject::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return LateBoundObject::Release(); }

    HRESULT STDMETHODCALLTYPE Attach(void** handle, BSTR* file) override;
    HRESULT STDMETHODCALLTYPE Detach() override;

  protected:
    [[nodiscard]] const std::vector<LateBoundMember>& members() const override;
    [[nodiscard]] std::string sourceName() const override { return "vemDatos.rdoConnection"; }
    AutomationValue invoke(DISPID member, const Arguments& arguments) override;

  private:
    [[nodiscard]] rdoConnection& opened() const;
    void establish();
    void close();

    std::string connect_;
    std::shared_ptr<rdoConnection> connection_;
    /// The same where it is one of ODBC.
    std::shared_ptr<odbc::OdbcConnection> odbc_;
    /// The name of the SQLite file where it is none of ODBC.
    std::string file_;
    std::int64_t rowsAffected_ = 0;
    int attached_ = 0;
};

}  // namespace catalogador::com
