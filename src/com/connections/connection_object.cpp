#include "com/connections/connection_object.h"

#include "adapters/odbc/connection_string.h"
#include "adapters/sqlite/connection.h"
#include "com/automation/automation_values.h"
#include "com/connections/resultset_object.h"

namespace catalogador::com {

namespace {

enum Id : DISPID { connect = 1, establishConnection, openResultset, execute, rowsAffected, close_ };

/// More arguments than these, for cursors, prompts and options, change nothing here.
constexpr UINT mostOptional = 4;

}  // namespace

HRESULT ConnectionObject::QueryInterface(REFIID iid, void** object) {
    if (object != nullptr && iid == IID_IConnectionSharing) {
        AddRef();
        *object = static_cast<IConnectionSharing*>(this);
        return S_OK;
    }
    return LateBoundObject::QueryInterface(iid, object);
}

HRESULT ConnectionObject::Attach(void** handle, BSTR* file) {
    if (handle == nullptr || file == nullptr) return E_POINTER;
    *handle = nullptr;
    *file = nullptr;
    if (!connection_) return E_UNEXPECTED;
    if (odbc_)
        *handle = odbc_->handle();
    else
        *file = newText(file_);
    ++attached_;
    return S_OK;
}

HRESULT ConnectionObject::Detach() {
    if (attached_ == 0) return E_UNEXPECTED;
    --attached_;
    return S_OK;
}

const std::vector<LateBoundMember>& ConnectionObject::members() const {
    static const std::vector<LateBoundMember> all{
        {L"Connect", connect},
        {L"EstablishConnection", establishConnection},
        {L"OpenResultset", openResultset},
        {L"Execute", execute},
        {L"RowsAffected", rowsAffected},
        {L"Close", close_},
    };
    return all;
}

rdoConnection& ConnectionObject::opened() const {
    if (!connection_)
        throw RuntimeError(error_number::objectNotSet,
                           "The connection is not open: set Connect and call EstablishConnection");
    return *connection_;
}

void ConnectionObject::close() {
    if (attached_ > 0)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "The connection cannot be closed while a screen works with it");
    connection_.reset();
    odbc_.reset();
}

void ConnectionObject::establish() {
    close();
    if (const auto file = odbc::sqliteFileOf(connect_)) {
        file_ = *file;
        connection_ = sqlite::Connection::open(file_, {}, sqlite::Opening::created);
        return;
    }
    odbc_ = odbc::OdbcConnection::open(connect_);
    connection_ = odbc_;
}

AutomationValue ConnectionObject::invoke(DISPID member, const Arguments& arguments) {
    switch (member) {
        case connect:
            arguments.expect(arguments.puts() ? 1 : 0, arguments.puts() ? 1 : 0);
            if (!arguments.puts()) return AutomationValue(connect_);
            connect_ = arguments.text(0);
            return {};
        case establishConnection:
            arguments.expect(0, mostOptional);
            establish();
            return {};
        case openResultset:
            arguments.expect(1, mostOptional);
            return objectValue(new ResultsetObject(opened().OpenToWrite(arguments.text(0))));
        case execute:
            arguments.expect(1, mostOptional);
            rowsAffected_ = opened().Execute(arguments.text(0));
            return {};
        case rowsAffected:
            arguments.expect(0, 0);
            return AutomationValue(rowsAffected_);
        case close_:
            arguments.expect(0, 0);
            close();
            return {};
        default:
            throw CallError{DISP_E_MEMBERNOTFOUND};
    }
}

}  // namespace catalogador::com
