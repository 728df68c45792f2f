#include "com/component/host_connection.h"

#include "adapters/odbc/odbc_connection.h"
#include "adapters/sqlite/connection.h"
#include "com/automation/automation_connection.h"
#include "com/automation/automation_values.h"

namespace catalogador::com {

namespace {

class UnusableConnection : public rdoConnection {
  public:
    explicit UnusableConnection(RuntimeError reason) : reason_(std::move(reason)) {}
    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& /*sql*/, int /*type*/,
                                                int /*lock*/) override {
        throw reason_;
    }
    std::int64_t Execute(const SqlText& /*sql*/) override { throw reason_; }
    void setListener(StatementListener* /*listener*/) override {}

  private:
    RuntimeError reason_;
};

}  // namespace

HostConnection::HostConnection(IDispatch* connection) {
    if (connection == nullptr) return;
    if (SUCCEEDED(connection->QueryInterface(IID_IConnectionSharing, shared_.putVoid()))) return;
    AutomationObject object(ComPtr<IDispatch>::sharing(connection));
    if (!AutomationConnection::accepts(object))
        throw RuntimeError(error_number::typeMismatch,
                           "The object is no connection: it has no OpenResultset and Execute");
    automation_ = std::make_shared<AutomationConnection>(std::move(object));
}

HostConnection::Use::Use(HostConnection& connection, clsCatalogador& component)
    : component_(component), used_(connection.automation_) {
    if (connection.shared_) attach(connection.shared_);
    component_.Coneccion(used_.get());
}

void HostConnection::Use::attach(const ComPtr<IConnectionSharing>& shared) {
    void* handle = nullptr;
    BSTR file = nullptr;
    try {
        if (FAILED(shared->Attach(&handle, &file)))
            throw RuntimeError(error_number::objectNotSet, "The connection is not open");
        attached_ = shared;
        const std::string path = textOf(file);
        SysFreeString(file);
        if (handle != nullptr)
            used_ = odbc::OdbcConnection::onHandle(handle);
        else
            used_ = sqlite::Connection::open(path);
    } catch (const RuntimeError& error) {
        used_ = std::make_shared<UnusableConnection>(error);
    }
}

HostConnection::Use::~Use() {
    component_.Coneccion(nullptr);
    used_.reset();
    if (attached_) attached_->Detach();
}

}  // namespace catalogador::com
