#include "adapters/odbc/odbc_handle.h"

#include <array>
#include <utility>
#include <vector>

#include "runtime/error.h"

namespace catalogador {

namespace {

constexpr SQLSMALLINT longestMessage = 4096;

}  // namespace

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_)))
        throw RuntimeError(error_number::statementFailed,
                           "The database driver gave no handle (is the connection lost?)");
}

OdbcHandle::~OdbcHandle() {
    if (handle_ != nullptr) SQLFreeHandle(kind_, handle_);
}

OdbcHandle::OdbcHandle(OdbcHandle&& other) noexcept
    : kind_(other.kind_), handle_(std::exchange(other.handle_, nullptr)) {}

OdbcHandle& OdbcHandle::operator=(OdbcHandle&& other) noexcept {
    std::swap(kind_, other.kind_);
    std::swap(handle_, other.handle_);
    return *this;
}

std::string OdbcHandle::diagnostics() const {
    std::string all;
    std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
    std::vector<SQLCHAR> message(longestMessage);
    for (SQLSMALLINT record = 1;; ++record) {
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRec(kind_, handle_, record, state.data(), &native,
                                         message.data(), longestMessage, &length)))
            break;
        if (!all.empty()) all += "; ";
        all.append(reinterpret_cast<const char*>(state.data())).append(": ");
        all.append(reinterpret_cast<const char*>(message.data()));
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
