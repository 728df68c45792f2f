#pragma once

#include <cstdint>
#include <string>

#include "adapters/sql/odbc_api.h"

namespace catalogador {

/// A handle of the driver manager, freed with its owner.
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// Allocates a handle of that kind (SQL_HANDLE_…). Raises RuntimeError (statementFailed).
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);
    /// A handle that somebody else has made and will free.
    static OdbcHandle borrowed(SQLSMALLINT kind, SQLHANDLE handle);
    ~OdbcHandle();
    OdbcHandle(OdbcHandle&& other) noexcept;
    OdbcHandle& operator=(OdbcHandle&& other) noexcept;
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    [[nodiscard]] SQLHANDLE get() const { return handle_; }

    /// What the driver last reported on the handle: "SQLSTATE: text", several joined by "; ".
    [[nodiscard]] std::string diagnostics() const;
    /// Raises RuntimeError (statementFailed) with the driver's text when `result` is a failure.
    void check(SQLRETURN result) const;

  private:
    SQLSMALLINT kind_ = 0;
    SQLHANDLE handle_ = nullptr;
    bool owned_ = true;
};

/// A whole number as the pointer argument in which the interface expects it.
SQLPOINTER attributeValue(std::uintptr_t value);

}  // namespace catalogador
