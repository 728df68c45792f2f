#include "adapters/odbc/odbc_handle.h"

#include "adapters/odbc/driver_errors.h"
#include "adapters/odbc/driver_text.h"
#include "runtime/error.h"

namespace catalogador::odbc {

OdbcHandle::Owned::~Owned() {
    if (handle == nullptr || borrowed) return;
    if (connected) {
        // A connection with an open transaction cannot be left.
        SQLEndTran(SQL_HANDLE_DBC, handle, SQL_ROLLBACK);
        SQLDisconnect(handle);
    }
    SQLFreeHandle(kind, handle);
}

OdbcHandle::OdbcHandle(SQLSMALLINT kind, const OdbcHandle& parent)
    : owned_(std::make_shared<Owned>()) {
    owned_->kind = kind;
    owned_->parent = parent.owned_;
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent.get(), &owned_->handle)))
        throw RuntimeError(error_number::statementFailed,
                           "The database driver gave no handle (is the connection lost?)",
                           ErrorCause::lost);
}

OdbcHandle OdbcHandle::borrowed(SQLSMALLINT kind, SQLHANDLE handle) {
    OdbcHandle made;
    made.owned_ = std::make_shared<Owned>();
    made.owned_->kind = kind;
    made.owned_->handle = handle;
    made.owned_->borrowed = true;
    return made;
}

std::string OdbcHandle::diagnostics() const {
    return joined(diagnosticRecords(owned_->kind, owned_->handle));
}

void OdbcHandle::check(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    const auto records = diagnosticRecords(owned_->kind, owned_->handle);
    std::string text = joined(records);
    if (text.empty()) text = "The database driver failed without saying why";
    throw RuntimeError(error_number::statementFailed, text, causeOf(records));
}

SQLPOINTER attributeValue(std::uintptr_t value) {
    // The interface takes numbers in the place of pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace catalogador::odbc
