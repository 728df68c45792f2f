#include "adapters/odbc/odbc_handle.h"

#include <utility>

#include "adapters/odbc/driver_text.h"
#include "runtime/error.h"

namespace catalogador {

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_)))
        throw RuntimeError(error_number::statementFailed,
                           "The database driver gave no handle (is the connection lost?)");
}

OdbcHandle OdbcHandle::borrowed(SQLSMALLINT kind, SQLHANDLE handle) {
    OdbcHandle made;
    made.kind_ = kind;
    made.handle_ = handle;
    made.owned_ = false;
    return made;
}

OdbcHandle::~OdbcHandle() {
    if (handle_ != nullptr && owned_) SQLFreeHandle(kind_, handle_);
}

OdbcHandle::OdbcHandle(OdbcHandle&& other) noexcept
    : kind_(other.kind_), handle_(std::exchange(other.handle_, nullptr)), owned_(other.owned_) {}

OdbcHandle& OdbcHandle::operator=(OdbcHandle&& other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(handle_, other.handle_);
    std::swap(owned_, other.owned_);
    return *this;
}

std::string OdbcHandle::diagnostics() const {
    std::string all;
    DiagnosticRecord record;
    for (SQLSMALLINT number = 1; readDiagnostic(kind_, handle_, number, record); ++number) {
        if (!all.empty()) all += "; ";
        all += record.state + ": " + record.message;
    }
    return all;
}

void OdbcHandle::check(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    std::string text = diagnostics();
    if (text.empty()) text = "The database driver failed without saying why";
    throw RuntimeError(error_number::statementFailed, text);
}

SQLPOINTER attributeValue(std::uintptr_t value) {
    // The interface takes numbers in the place of pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<SQLPOINTER>(value);
}

}  // namespace catalogador
